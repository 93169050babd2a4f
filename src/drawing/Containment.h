#pragma once

#include <span>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// A point of which it is asked in which ring it lies.
struct SContainmentQuery {
    SPoint m_At;
    double m_Area = 0.0;  ///< only rings with a greater area than this count
};

/// For each query the smallest ring round it (by the even-odd rule), as its index, or −1 for none. Rings and
/// queries together take about n log n time, as long as not too many of the rings lie in one row and column.
[[nodiscard]] std::vector<int> InnermostAround(std::span<const CRing> rings,
                                               std::span<const SContainmentQuery> queries);

/// The area, by the ring's winding; at least 0.
[[nodiscard]] double AreaOf(const CRing& ring);

/// A point well inside of a ring (by the even-odd rule), away from its border; any point for a ring without
/// an inside.
[[nodiscard]] SPoint InnerPointOf(const CRing& ring);

}  // namespace nestrix
