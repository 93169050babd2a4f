#pragma once

#include <vector>

#include "nest/CPackProblem.h"

namespace nestrix {

/// A valid packing of all items to begin a search with: the earlier packing as far as its placements are of
/// items and allowed, what it lacks or what overlaps in it above that; or all by their boxes where there is
/// none.
/// @param pStart an earlier packing; may be null.
/// @return a placement for each item.
[[nodiscard]] std::vector<SFreePlacement> FindFirstPacking(const CPackProblem& problem,
                                                           const SFreePacking* pStart);

/// The same packing, if it is valid. If not, with the items above the others that overlap them or are out of
/// the strip: as few as easily found.
/// @param placed a placement for each item.
[[nodiscard]] std::vector<SFreePlacement> LiftOverlapping(const CPackProblem& problem,
                                                          std::vector<SFreePlacement> placed);

}  // namespace nestrix
