#pragma once

#include "packing/SGrid.h"

namespace nestrix {

/// The outline with all holes joined to it by seams, there and back: one ring around the same inside.
/// @param shape cleaned, touching itself nowhere.
[[nodiscard]] CGridRing JoinedToOneRing(const SGridShape& shape);

}  // namespace nestrix
