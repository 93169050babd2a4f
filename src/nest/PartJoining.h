#pragma once

#include "nest/EarClipping.h"

namespace nestrix {

/// Joins convex parts of a ring along the cuts between them, as long as they stay convex, along long cuts
/// first.
/// @param parts counter-clockwise.
[[nodiscard]] std::vector<CCorners> JoinParts(const CGridRing& ring, std::vector<CCorners> parts);

}  // namespace nestrix
