#pragma once

#include <span>
#include <string>
#include <vector>

#include "packing/SFreePacking.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

/// Copies of a piece that may be laid in these turns.
[[nodiscard]] SPiece Copies(SPiece piece, int nQuantity, std::vector<double> degrees = {0.0});

/// A piece whose bounding box has these sides.
[[nodiscard]] SPiece Box(double width, double height);
[[nodiscard]] SPiece RightTriangle(double width, double height);
[[nodiscard]] SPiece LetterL(double side);
/// A square with a square hole in its middle.
[[nodiscard]] SPiece Frame(double side, double holeSide);

/// So many teeth, 10 wide, 30 high and 10 apart, on a bar 10 high.
[[nodiscard]] SPiece Comb(int nTeeth);
/// Round but for so many waves, and cut into many convex parts; up to 26 wide.
[[nodiscard]] SPiece Flower(int nWaves);

/// Sixteen copies of four pieces, convex and not, with a hole, turned by quarters; up to 30 wide.
[[nodiscard]] std::vector<SPiece> MixedSet();

/// A few shapes in many turns, some mirrored.
[[nodiscard]] std::vector<SPiece> TurnedSet();

/// A square with sides of 60, cut into five pieces that may be turned by a half.
[[nodiscard]] std::vector<SPiece> Puzzle();

/// Boxes of 1 to nMost in whole units, some in several copies and turns.
[[nodiscard]] std::vector<SPiece> RandomBoxes(CSeededRandom& random, int nPieces, int nMost);

/// What is wrong with a packing, in words, or nothing.
[[nodiscard]] std::string FaultOf(std::span<const SPiece> pieces, const SFreePacking& packing);

}  // namespace nestrix::support
