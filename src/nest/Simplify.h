#pragma once

#include "packing/SGrid.h"

namespace nestrix {

/// The shape with fewer points, each one of the shape's own, chosen so that no point left out is further than
/// `tolerance` from the line that stands for it (Ramer 1972; Douglas and Peucker 1973). Where that would have
/// lines cross, the tolerance is halved until none do.
/// @param shape cleaned.
/// @param tolerance in units of the grid.
[[nodiscard]] SGridShape Simplified(const SGridShape& shape, double tolerance);

}  // namespace nestrix
