#pragma once

#include <cstdint>

#include "certify/SBorder.h"

namespace nestrix::certify {

/// Whether any points of two borders are nearer to each other than the distance, which is at most
/// GRID_LENGTH_MOST. Shapes whose insides do not overlap are as near as their borders. Of borders that cross
/// nothing is told.
[[nodiscard]] bool AreNearer(const SBorder& first, const SBorder& second, int64_t nDistance);

}  // namespace nestrix::certify
