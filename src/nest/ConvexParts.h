#pragma once

#include <vector>

#include "nest/GridGeometry.h"

namespace nestrix {

/// Cuts a shape into convex pieces without new points: together they cover the shape, and their insides share
/// nothing. Ears are clipped (holes are first joined to the outline by seams), then neighbours are joined as
/// long as they stay convex (Hertel and Mehlhorn 1983), the largest first while there are few.
/// @param shape cleaned, and crossing itself nowhere.
/// @return counter-clockwise rings; nothing for a shape without inside.
[[nodiscard]] std::vector<CGridRing> CutIntoConvexParts(const SGridShape& shape);

}  // namespace nestrix
