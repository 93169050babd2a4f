#pragma once

#include <cstdint>
#include <string>

#include "formats/json/Instance.h"

namespace nestrix::bench {

/// A sheet of 1000 × 1000, cut by random lines into convex pieces: the best packing is full. Each piece may
/// lie as it was, or be turned by a half.
[[nodiscard]] SInstance MakeCutSheet(int nPieces, uint64_t nSeed);

/// A sheet of 1000 × 1000, cut by straight lines into rectangles, or along the sides of square cells into
/// letters of right angles: the best packing is full, but all corners fit each other. Turned by quarters.
[[nodiscard]] SInstance MakeRectangles(int nPieces, uint64_t nSeed);
[[nodiscard]] SInstance MakeLetters(int nPieces, uint64_t nSeed);

/// Round pieces with bays and knobs, all different, of 50 to 120 vertices; four turns.
[[nodiscard]] SInstance MakeBlobs(int nPieces, uint64_t nSeed);

/// Copies of some different pieces with bays and knobs; four turns.
[[nodiscard]] SInstance MakeCopies(int nPieces, int nKinds, int nVertices, uint64_t nSeed);

/// The set that a name stands for: "sheet-PIECES-SEED", "rectangles-PIECES-SEED", "letters-PIECES-SEED",
/// "blobs-PIECES-SEED" or "copies-PIECES-KINDS-VERTICES-SEED".
/// @throws std::invalid_argument for any other name.
[[nodiscard]] SInstance MakeSet(const std::string& name);

}  // namespace nestrix::bench
