#pragma once

#include <cmath>

#include "geom/RoundingMargins.h"
#include "packing/drop/CProfileSet.h"

namespace nestrix {

/// A half profile at its place in the strip. The sums with the offset are formed where they are needed, which
/// is at few points and edges.
struct SMovedHalf {
    SMovedHalf(const SHalfProfile& half, float fX, float fY)
        : m_Half(half),
          m_fX(fX),
          m_fY(fY),
          m_fMargin(HeightMargin(std::abs(half.m_Y.m_fLow) + std::abs(half.m_Y.m_fHigh) + std::abs(fY))),
          m_Y{half.m_Y.m_fLow + fY - m_fMargin, half.m_Y.m_fHigh + fY + m_fMargin} {}

    const SHalfProfile& m_Half;
    float m_fX;
    float m_fY;
    float m_fMargin;  ///< of heights and their bounds
    SRange m_Y;       ///< nothing of it lies outside
};

/// The smallest gap between the lower side of what falls and the upper side of what it falls on, vertical
/// sides apart; fCut if none is smaller.
/// @param pAbandoned once this is true, the answer is of no use any more, and comes soon. May be null.
[[nodiscard]] float FindGap(const SMovedHalf& front, const SMovedHalf& back, float fCut,
                            const CRelaxed<bool>* pAbandoned = nullptr);

}  // namespace nestrix
