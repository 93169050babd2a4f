#pragma once

#include <span>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// Finds lines that are drawn twice: stretch for stretch over an earlier one, in either direction, a closed
/// one from any of its corners.
/// @param lines finite.
/// @param distance points this near to each other are the same.
/// @return for each line whether an earlier one is the same.
[[nodiscard]] std::vector<bool> FindDoubles(std::span<const SPath> lines, double distance);

}  // namespace nestrix
