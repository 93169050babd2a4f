#include "certify/CLocator.h"

#include <algorithm>
#include <cstdlib>

#include "certify/Wide.h"

namespace nestrix::certify {

namespace {

/// Whether lines along the y axis meet fewer edges than those along the x axis.
bool IsFlat(const SBorder& border) {
    double sumX = 0.0;
    double sumY = 0.0;
    for (const SBorderEdge& edge : border.m_Edges) {
        const SGridPoint along = edge.m_To - edge.m_From;
        sumX += static_cast<double>(std::abs(along.m_nX));
        sumY += static_cast<double>(std::abs(along.m_nY));
    }
    const SGridPoint extent = border.m_Box.m_High - border.m_Box.m_Low;
    return sumX * static_cast<double>(extent.m_nY) < sumY * static_cast<double>(extent.m_nX);
}

}  // namespace

CLocator::CLocator(const SBorder& border) : m_bTurned(IsFlat(border)) {
    m_Edges.reserve(border.m_Edges.size());
    for (const SBorderEdge& edge : border.m_Edges) {
        const SGridPoint from = Turned(edge.m_From + edge.m_From);
        const SGridPoint to = Turned(edge.m_To + edge.m_To);
        m_Edges.push_back({from, to, std::min(from.m_nY, to.m_nY), std::max(from.m_nY, to.m_nY)});
    }
    std::sort(m_Edges.begin(), m_Edges.end(),
              [](const SRayEdge& a, const SRayEdge& b) { return a.m_nLow < b.m_nLow; });
    if (!m_Edges.empty()) {
        FindHighest(0, m_Edges.size());
    }
}

SGridPoint CLocator::Turned(SGridPoint point) const {
    return m_bTurned ? SGridPoint{-point.m_nY, point.m_nX} : point;
}

int64_t CLocator::FindHighest(size_t nFirst, size_t nLast) {
    const size_t nMiddle = nFirst + (nLast - nFirst) / 2;
    SRayEdge& middle = m_Edges[nMiddle];
    middle.m_nHighest = middle.m_nHigh;
    if (nFirst < nMiddle) {
        middle.m_nHighest = std::max(middle.m_nHighest, FindHighest(nFirst, nMiddle));
    }
    if (nMiddle + 1 < nLast) {
        middle.m_nHighest = std::max(middle.m_nHighest, FindHighest(nMiddle + 1, nLast));
    }
    return middle.m_nHighest;
}

template <class TVisit>
void CLocator::VisitAt(int64_t nHeight, size_t nFirst, size_t nLast, const TVisit& visit) const {
    if (nFirst == nLast) {
        return;
    }
    const size_t nMiddle = nFirst + (nLast - nFirst) / 2;
    const SRayEdge& middle = m_Edges[nMiddle];
    if (middle.m_nHighest < nHeight) {
        return;
    }
    VisitAt(nHeight, nFirst, nMiddle, visit);
    if (middle.m_nLow <= nHeight) {
        if (middle.m_nHigh >= nHeight) {
            visit(middle);
        }
        VisitAt(nHeight, nMiddle + 1, nLast, visit);
    }
}

SWhere CLocator::Locate(const SStretch& stretch) const {
    // A ray to the east, from just above the middle, counts the edges that it meets. Those under the stretch
    // begin to its west, or below.
    SWhere where;
    const SGridPoint point = Turned(stretch.m_Doubled);
    const SGridPoint direction = Turned(stretch.m_Direction);
    VisitAt(point.m_nY, 0, m_Edges.size(), [&](const SRayEdge& edge) {
        const auto [nWest, nEast] = std::minmax(edge.m_From.m_nX, edge.m_To.m_nX);
        if (nEast < point.m_nX) {
            return;
        }
        const int nSide = SideOf(edge.m_From, edge.m_To, point);
        if (nSide == 0 && nWest <= point.m_nX) {
            ++(Dot(edge.m_To - edge.m_From, direction) > 0 ? where.m_nAlong : where.m_nAgainst);
        } else if (nSide > 0 && edge.m_From.m_nY <= point.m_nY && point.m_nY < edge.m_To.m_nY) {
            ++where.m_nWinding;
        } else if (nSide < 0 && edge.m_To.m_nY <= point.m_nY && point.m_nY < edge.m_From.m_nY) {
            --where.m_nWinding;
        }
    });
    // So far about a point just to the east of the stretch; just above it, if it is horizontal.
    const bool bLeft = direction.m_nY < 0 || (direction.m_nY == 0 && direction.m_nX > 0);
    where.m_nWinding += bLeft ? 0 : where.m_nAlong - where.m_nAgainst;
    return where;
}

}  // namespace nestrix::certify
