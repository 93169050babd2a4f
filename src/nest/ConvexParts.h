#pragma once

#include <vector>

#include "packing/PointVectors.h"

namespace nestrix {

/// Cuts a shape into convex parts without new points: together they cover the shape, and their insides share
/// nothing. Ears are clipped (holes are first joined to the outline by seams), then neighbours are joined as
/// long as they stay convex (Hertel and Mehlhorn 1983), along long cuts first.
/// @param shape cleaned, and crossing itself nowhere.
/// @return counter-clockwise rings; nothing for a shape without inside.
[[nodiscard]] std::vector<CGridRing> CutIntoConvexParts(const SGridShape& shape);

using CConvexPart = std::vector<SPoint>;  ///< counter-clockwise, in units of the grid

/// The same parts as they are calculated with: off the grid once they are turned.
[[nodiscard]] std::vector<CConvexPart> ConvexPartsOf(const SGridShape& shape);

}  // namespace nestrix
