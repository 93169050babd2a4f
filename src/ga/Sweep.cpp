#include "Sweep.h"

#include <algorithm>
#include <bit>

#include "Lanes.h"

namespace {

/// The edges of a moved half profile, as the sweeps read them.
class CEdges {
public:
    explicit CEdges(const SMovedHalf& moved)
        : m_Half(*moved.m_pHalf),
          m_pLow(moved.m_pX + m_Half.LowEnds()),
          m_pHigh(moved.m_pX + m_Half.HighEnds()),
          m_pReach(moved.m_pX + m_Half.Reaches()),
          m_pStartX(moved.m_pX + m_Half.m_nStarts),
          m_pStartY(moved.m_pY + m_Half.m_nPointLanes) {}

    [[nodiscard]] SRange SpanX() const { return {m_pLow[0], m_pReach[m_Half.m_nEdges - 1]}; }

    /// Calls `meet(height)` for every edge at x, which lies in SpanX.
    template <class TMeet>
    void MeetAt(float fX, const TMeet& meet) const {
        for (size_t nEdge = CountLeftOf(fX); nEdge < m_Half.m_nEdges && m_pLow[nEdge] <= fX; ++nEdge) {
            if (m_pHigh[nEdge] >= fX) {
                // The formula of the hit test, with the slope divided out beforehand.
                const double along = static_cast<double>(fX) - static_cast<double>(m_pStartX[nEdge]);
                meet(static_cast<double>(m_pStartY[nEdge]) + m_Half.m_pSlopes[nEdge] * along);
            }
        }
    }

private:
    /// Up to here counting four at a time beats bisection.
    static constexpr size_t COUNTED_EDGES = 32;

    /// How many edges lie wholly to the left of x, and before the first one that reaches it.
    [[nodiscard]] size_t CountLeftOf(float fX) const {
        size_t nFirst = 0;
        size_t nLanes = m_Half.m_nEdgeLanes / GA_LANES;
        while (nLanes * GA_LANES > COUNTED_EDGES) {
            const size_t nHalf = nLanes / 2;
            nFirst += m_pReach[nFirst + nHalf * GA_LANES - 1] < fX ? nHalf * GA_LANES : 0;
            nLanes -= nHalf;
        }
        size_t nCount = 0;
        for (size_t nLane = 0; nLane < nLanes; ++nLane) {
            // Reaches ascend, so the bits of those to the left of x come first.
            const unsigned int nLeft = LanesBelow(m_pReach + nFirst + nLane * GA_LANES, fX);
            nCount += static_cast<size_t>(std::countr_one(nLeft));
        }
        return nFirst + nCount;
    }

    const SHalfProfile& m_Half;
    const float* m_pLow;
    const float* m_pHigh;
    const float* m_pReach;
    const float* m_pStartX;
    const float* m_pStartY;
};

/// Calls `meet(pointY, height)` for every edge at a point's x. Only points in the y range that `hopeful()`
/// gives count; it is asked again for every few points, since it narrows as gaps are found.
template <class THopeful, class TMeet>
void Sweep(const SMovedHalf& points, const SMovedHalf& edgeHalf, const THopeful& hopeful, const TMeet& meet) {
    if (edgeHalf.m_pHalf->m_nEdges == 0) {
        return;
    }
    const CEdges edges(edgeHalf);
    const SRange span = edges.SpanX();
    for (size_t nPoint = 0; nPoint < points.m_pHalf->m_nPoints; nPoint += GA_LANES) {
        const float* const pX = points.m_pX + nPoint;
        const float* const pY = points.m_pY + nPoint;
        for (unsigned int nMask = LanesInside(pX, pY, span, hopeful()); nMask != 0; nMask &= nMask - 1) {
            const int nLane = std::countr_zero(nMask);
            edges.MeetAt(pX[nLane], [&](double height) { meet(pY[nLane], height); });
        }
    }
}

}  // namespace

float SweepDownward(const SMovedHalf& points, const SMovedHalf& edges, float fCut) {
    Sweep(
        points, edges,
        [&] {
            return SRange{edges.m_fLow, edges.m_fHigh + fCut};
        },
        [&](float fY, double height) {
            if (static_cast<double>(fY) >= height) {
                fCut = std::min(fCut, fY - static_cast<float>(height));
            }
        });
    return fCut;
}

float SweepUpward(const SMovedHalf& points, const SMovedHalf& edges, float fCut) {
    Sweep(
        points, edges,
        [&] {
            return SRange{edges.m_fLow - fCut, edges.m_fHigh};
        },
        [&](float fY, double height) {
            if (static_cast<double>(fY) <= height) {
                fCut = std::min(fCut, static_cast<float>(height) - fY);
            }
        });
    return fCut;
}
