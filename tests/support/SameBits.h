#pragma once

#include <bit>
#include <cmath>
#include <cstdint>

namespace nestrix::support {

/// Whether two results are the same number: bit for bit, so that −0 differs from 0, except that all values
/// that are not numbers count as one, since neither their sign nor their payload is anyone's to choose.
[[nodiscard]] inline bool SameBits(float a, float b) {
    return std::bit_cast<uint32_t>(a) == std::bit_cast<uint32_t>(b) || (std::isnan(a) && std::isnan(b));
}

}  // namespace nestrix::support
