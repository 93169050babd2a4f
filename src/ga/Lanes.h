#pragma once

#include <bit>
#include <cstddef>
#include <limits>

#if defined(__SSE2__)
#include <emmintrin.h>
#endif

/// Four floats at a time: comparisons whose results come back as one bit per float, the first in bit 0. With
/// vector instructions where all processors of the kind have them, in plain C++ elsewhere, with the same
/// results.

inline constexpr size_t GA_LANES = 4;

/// Fills a block up to whole lanes. Not a number, since that lies in no range and below nothing, wherever the
/// block is moved.
inline constexpr float GA_LANE_FILLER = std::numeric_limits<float>::quiet_NaN();

[[nodiscard]] constexpr size_t RoundUpToLanes(size_t nCount) {
    return (nCount + GA_LANES - 1) / GA_LANES * GA_LANES;
}

struct SRange {
    float m_fLow;
    float m_fHigh;
};

namespace plain {

/// Which of the points lie in both ranges, bounds included.
[[nodiscard]] inline unsigned int LanesInside(const float* pX, const float* pY, SRange x, SRange y) {
    unsigned int nMask = 0;
    for (size_t i = 0; i < GA_LANES; ++i) {
        const bool bInsideX = pX[i] >= x.m_fLow && pX[i] <= x.m_fHigh;
        const bool bInsideY = pY[i] >= y.m_fLow && pY[i] <= y.m_fHigh;
        nMask |= (bInsideX && bInsideY ? 1U : 0U) << i;
    }
    return nMask;
}

/// Which of the values are smaller than the limit.
[[nodiscard]] inline unsigned int LanesBelow(const float* pValues, float fLimit) {
    unsigned int nMask = 0;
    for (size_t i = 0; i < GA_LANES; ++i) {
        nMask |= (pValues[i] < fLimit ? 1U : 0U) << i;
    }
    return nMask;
}

}  // namespace plain

#if defined(__SSE2__)

[[nodiscard]] inline unsigned int LanesInside(const float* pX, const float* pY, SRange x, SRange y) {
    const __m128 xs = _mm_loadu_ps(pX);
    const __m128 ys = _mm_loadu_ps(pY);
    const __m128 insideX =
        _mm_and_ps(_mm_cmpge_ps(xs, _mm_set1_ps(x.m_fLow)), _mm_cmple_ps(xs, _mm_set1_ps(x.m_fHigh)));
    const __m128 insideY =
        _mm_and_ps(_mm_cmpge_ps(ys, _mm_set1_ps(y.m_fLow)), _mm_cmple_ps(ys, _mm_set1_ps(y.m_fHigh)));
    return static_cast<unsigned int>(_mm_movemask_ps(_mm_and_ps(insideX, insideY)));
}

[[nodiscard]] inline unsigned int LanesBelow(const float* pValues, float fLimit) {
    return static_cast<unsigned int>(
        _mm_movemask_ps(_mm_cmplt_ps(_mm_loadu_ps(pValues), _mm_set1_ps(fLimit))));
}

#else

using plain::LanesBelow;
using plain::LanesInside;

#endif
