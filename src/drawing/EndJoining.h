#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// Finds which ends of lines meet. Ends that are the same point but for rounding do; of those that are left
/// over, the nearest two within the tolerance, again and again. A line so short that its own two ends are
/// about as near is not closed to a ring.
/// @param ends finite; two for each line, one after the other.
/// @param lengths of the lines.
/// @return for each end a number below `ends.size()`, the same for those that meet.
[[nodiscard]] std::vector<size_t> JoinEnds(std::span<const SPoint> ends, std::span<const double> lengths,
                                           double tolerance);

/// What of a tolerance is taken for rounding.
inline constexpr double ROUNDING_OF_TOLERANCE = 1e-3;

}  // namespace nestrix
