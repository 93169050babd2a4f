#pragma once

#include <vector>

#include "nest/CPackProblem.h"

namespace nestrix {

/// A valid packing of all items to begin a search with: the earlier packing as far as its placements are of
/// items and allowed, what it lacks above it; or all by their boxes where there is none, or it is not valid.
/// @param pStart an earlier packing; may be null.
/// @return a placement for each item.
[[nodiscard]] std::vector<SFreePlacement> FindFirstPacking(const CPackProblem& problem,
                                                           const SFreePacking* pStart);

}  // namespace nestrix
