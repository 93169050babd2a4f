#pragma once

#include "CProfileSet.h"

/// A half profile moved to its place in the strip: its blocks of x and y, laid out as in SHalfProfile.
struct SMovedHalf {
    const SHalfProfile* m_pHalf;
    const float* m_pX;
    const float* m_pY;
    float m_fLow;   ///< nothing of it lies lower
    float m_fHigh;  ///< nor higher
};

/// The smallest gap between the points and the edges below them, or fCut if none is smaller.
[[nodiscard]] float SweepDownward(const SMovedHalf& points, const SMovedHalf& edges, float fCut);

/// The smallest gap between the points and the edges above them, or fCut if none is smaller.
[[nodiscard]] float SweepUpward(const SMovedHalf& points, const SMovedHalf& edges, float fCut);
