#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "certify/Certify.h"
#include "certify/SBorder.h"

namespace nestrix::certify {

/// The pairs of shapes that overlap or are nearer than so many units of the grid, in order; at most
/// PAIRS_NAMED_MOST. Empty borders stand for shapes that are left out.
/// @param unit the length of a unit of the grid, for the amounts.
[[nodiscard]] std::vector<SViolation> FindWrongPairs(std::span<const SBorder> borders, int64_t nDistance,
                                                     double unit);

}  // namespace nestrix::certify
