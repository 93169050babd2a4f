#include "Sweep.h"

#include <algorithm>

namespace {

/// Walks points and edges from left to right and calls `meet(pointY, height)` for every edge at a point's x.
/// Points for which `isHopeless(pointY)` holds are passed over.
template <class TIsHopeless, class TMeet>
void Sweep(const SMovedHalf& points, const SMovedHalf& edges, const TIsHopeless& isHopeless,
           const TMeet& meet) {
    const SHalfProfile& half = *edges.m_pHalf;
    const float* const pLow = edges.m_pX + half.LowEnds();
    const float* const pHigh = edges.m_pX + half.HighEnds();
    const float* const pReach = edges.m_pX + half.Reaches();
    const float* const pStartX = edges.m_pX + half.m_nStarts;
    const float* const pStartY = edges.m_pY + half.m_nPoints;
    const double* const pSlope = half.m_Slopes.data();
    size_t nFirst = 0;  // all edges before it lie to the left of the point
    for (size_t nPoint = 0; nPoint < points.m_pHalf->m_nPoints; ++nPoint) {
        const float fX = points.m_pX[nPoint];
        const float fY = points.m_pY[nPoint];
        if (isHopeless(fY)) {
            continue;
        }
        while (nFirst < half.m_nEdges && pReach[nFirst] < fX) {
            ++nFirst;
        }
        for (size_t nEdge = nFirst; nEdge < half.m_nEdges && pLow[nEdge] <= fX; ++nEdge) {
            if (pHigh[nEdge] >= fX) {
                // The formula of the hit test, with the slope divided out beforehand.
                meet(fY, static_cast<double>(pStartY[nEdge]) +
                             pSlope[nEdge] * (static_cast<double>(fX) - static_cast<double>(pStartX[nEdge])));
            }
        }
    }
}

}  // namespace

float SweepDownward(const SMovedHalf& points, const SMovedHalf& edges, float fCut) {
    Sweep(
        points, edges, [&](float fY) { return fY - edges.m_fHigh >= fCut || fY < edges.m_fLow; },
        [&](float fY, double height) {
            if (static_cast<double>(fY) >= height) {
                fCut = std::min(fCut, fY - static_cast<float>(height));
            }
        });
    return fCut;
}

float SweepUpward(const SMovedHalf& points, const SMovedHalf& edges, float fCut) {
    Sweep(
        points, edges, [&](float fY) { return edges.m_fLow - fY >= fCut || fY > edges.m_fHigh; },
        [&](float fY, double height) {
            if (static_cast<double>(fY) <= height) {
                fCut = std::min(fCut, static_cast<float>(height) - fY);
            }
        });
    return fCut;
}
