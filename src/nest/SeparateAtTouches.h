#pragma once

#include <vector>

#include "nest/GridGeometry.h"

namespace nestrix {

/// The shape cut apart where only single points hold it together, and without what its border takes back: its
/// seams. Where it touches itself in the middle of a side, that side gets a corner. So no hole of what comes
/// out touches an outline or another hole, and rings meet themselves at corners only, with the inside to
/// their left before and after.
/// @param shape cleaned, and crossing itself nowhere.
/// @return the shape itself, if it touches itself nowhere.
[[nodiscard]] std::vector<SGridShape> SeparateAtTouches(const SGridShape& shape);

}  // namespace nestrix
