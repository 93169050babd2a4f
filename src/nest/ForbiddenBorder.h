#pragma once

#include <span>
#include <vector>

#include "nest/CPairField.h"

namespace nestrix {

/// The border of what the regions cover together, holes and slits included: what is left of each region's
/// sides when all that lies inside others is cut away.
[[nodiscard]] std::vector<SBorderEdge> FindBorder(std::span<const SForbiddenRegion> regions);

}  // namespace nestrix
