#pragma once

#include <cstddef>
#include <vector>

#include "packing/SGrid.h"

namespace nestrix {

using CCorners = std::vector<size_t>;  ///< indices of points of one ring

/// Cuts a counter-clockwise ring, which may run along itself there and back, into triangles: one ear after
/// the other is clipped, of those at hand the one with the shortest cut.
[[nodiscard]] std::vector<CCorners> ClipEars(const CGridRing& ring);

}  // namespace nestrix
