#pragma once

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

namespace nestrix {

/// Four values side by side, in the compilers' own vector types: with vector instructions where the processor
/// has them, in plain ones elsewhere, with the same results.

inline constexpr size_t LANES = 4;

using FloatLanes = float __attribute__((vector_size(16)));
using DoubleLanes = double __attribute__((vector_size(32)));
using FlagLanes = int32_t __attribute__((vector_size(16)));  ///< all bits of a lane, or none

/// Fills a block up to whole lanes. Not a number, since that lies in no range and below nothing, wherever the
/// block is moved.
inline constexpr float LANE_FILLER = std::numeric_limits<float>::quiet_NaN();

[[nodiscard]] constexpr size_t RoundUpToLanes(size_t nCount) {
    return (nCount + LANES - 1) / LANES * LANES;
}

[[nodiscard]] inline FloatLanes LoadLanes(const float* pValues) {
    FloatLanes lanes;
    std::memcpy(&lanes, pValues, sizeof lanes);
    return lanes;
}

/// One bit per lane, the first in bit 0.
[[nodiscard]] inline unsigned int BitsOf(FlagLanes flags) {
#if defined(__SSE2__)
    return static_cast<unsigned int>(_mm_movemask_ps(__builtin_bit_cast(__m128, flags)));
#else
    unsigned int nBits = 0;
    for (size_t i = 0; i < LANES; ++i) {
        nBits |= (flags[i] != 0 ? 1U : 0U) << i;
    }
    return nBits;
#endif
}

[[nodiscard]] inline float Smallest(FloatLanes lanes) {
    return std::min(std::min(lanes[0], lanes[1]), std::min(lanes[2], lanes[3]));
}

}  // namespace nestrix
