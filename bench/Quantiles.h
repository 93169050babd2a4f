#pragma once

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

namespace nestrix {

/// The value that a share of all lies below; there must be one at least. Share 0.5 gives the median.
[[nodiscard]] inline double Quantile(std::vector<double> values, double share) {
    const auto nRank = static_cast<ptrdiff_t>(share * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), values.begin() + nRank, values.end());
    return values[static_cast<size_t>(nRank)];
}

[[nodiscard]] inline double Median(std::vector<double> values) {
    return Quantile(std::move(values), 0.5);
}

}  // namespace nestrix
