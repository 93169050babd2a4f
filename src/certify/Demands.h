#pragma once

#include <span>
#include <vector>

#include "certify/Certify.h"

namespace nestrix::certify {

/// What the packing's list of placements, whatever their shapes, does not give that the pieces demand: pieces
/// that are unknown, turns that are not allowed, quantities that are not met.
[[nodiscard]] std::vector<SViolation> FindUnmetDemands(std::span<const SPiece> pieces,
                                                       std::span<const SFreePlacement> placed);

/// Whether two angles in degrees are the same direction, exactly; angles that are not finite are not.
[[nodiscard]] bool IsSameTurn(double a, double b);

}  // namespace nestrix::certify
