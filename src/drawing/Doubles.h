#pragma once

#include <span>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// Finds lines that are drawn twice: stretch for stretch over an earlier one, in either direction.
/// @param lines finite.
/// @param distance points this near to each other are the same.
/// @return for each line whether an earlier one is the same.
[[nodiscard]] std::vector<bool> FindDoubles(std::span<const SPath> lines, double distance);

/// Finds rings that run along an earlier one everywhere, in whatever stretches they were drawn.
/// @param rings none empty, finite.
/// @param distance this near to each other, they run along each other.
[[nodiscard]] std::vector<bool> FindDoubleRings(std::span<const CRing> rings, double distance);

}  // namespace nestrix
