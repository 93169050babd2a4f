#pragma once

#include <vector>

#include "nest/CPackProblem.h"

namespace nestrix {

/// Packs the items by their bounding boxes alone: at once, and valid without further examination. Each, the
/// tallest first, goes to where its top comes lowest on the skyline of those before it, in the version whose
/// box does best there (best fit: Burke, Kendall, Whitwell 2004).
/// @param items which ones.
/// @param nFloor where the strip begins for them; the margin or higher.
/// @return a placement for each of the items, in their order.
[[nodiscard]] std::vector<SFreePlacement> PackBoxes(const CPackProblem& problem,
                                                    const std::vector<size_t>& items, int64_t nFloor);

}  // namespace nestrix
