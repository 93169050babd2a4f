#pragma once

#include <cstdint>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix::bench {

/// A square sheet with sides so long, cut by lines from side to side, each across the longer side of the
/// largest piece, into rectangles with sides in whole units.
[[nodiscard]] std::vector<CRing> CutIntoRectangles(double sheet, int nPieces, uint64_t nSeed);

/// Such a sheet of square cells, five for each piece, parted along their sides into pieces without holes:
/// letters of right angles.
[[nodiscard]] std::vector<CRing> CutIntoLetters(double sheet, int nPieces, uint64_t nSeed);

}  // namespace nestrix::bench
