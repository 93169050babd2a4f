#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "nest/Places.h"

namespace nestrix {

/// The items that a linear program moves at a time, as indices: all of them, or, of more than 400, those at
/// one level, the lowest first.
[[nodiscard]] std::vector<std::vector<size_t>> BlocksOf(std::span<const SPlace> places);

}  // namespace nestrix
