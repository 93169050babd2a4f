#include "certify/CEdgeSweep.h"

#include <algorithm>
#include <limits>
#include <numbers>
#include <utility>

#include "packing/PointVectors.h"

namespace nestrix::certify {

SRange CEdgeSweep::RangeOf(const SEdge& edge, CAxis pAxis) {
    const auto [nLow, nHigh] = std::minmax(edge.m_From.*pAxis, edge.m_To.*pAxis);
    return {nLow - edge.m_nReach, nHigh + edge.m_nReach};
}

CEdgeSweep::SCrowd CEdgeSweep::CrowdAlong(CAxis pAxis, CEdges first, CEdges second) {
    double sum = 0.0;
    SRange whole{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()};
    for (const CEdges edges : {first, second}) {
        for (const SEdge& edge : edges) {
            const SRange range = RangeOf(edge, pAxis);
            sum += static_cast<double>(range.m_nHigh - range.m_nLow);
            whole = {std::min(whole.m_nLow, range.m_nLow), std::max(whole.m_nHigh, range.m_nHigh)};
        }
    }
    const double extent = static_cast<double>(whole.m_nHigh) - static_cast<double>(whole.m_nLow) + 1.0;
    return {sum / extent, pAxis};
}

CEdgeSweep::SCrowd CEdgeSweep::LeastCrowd(CEdges first, CEdges second) {
    const SCrowd alongX = CrowdAlong(&SGridPoint::m_nX, first, second);
    const SCrowd alongY = CrowdAlong(&SGridPoint::m_nY, first, second);
    return alongY.m_Edges < alongX.m_Edges ? alongY : alongX;
}

int64_t CEdgeSweep::Reach() const {
    int64_t nReach = 0;
    for (const SEdge& edge : m_Edges) {
        nReach = std::max(nReach, edge.m_nReach);
    }
    return nReach;
}

CRangeSweep CEdgeSweep::Along(CAxis pAxis) const {
    const CAxis pAcross = pAxis == &SGridPoint::m_nX ? &SGridPoint::m_nY : &SGridPoint::m_nX;
    CRangeSweep sweep;
    sweep.Reserve(m_Edges.size());
    for (const SEdge& edge : m_Edges) {
        sweep.Add(RangeOf(edge, pAxis), RangeOf(edge, pAcross), edge.m_nIndex);
    }
    return sweep;
}

CSegmentTree CEdgeSweep::AsTree(SGridPoint origin, int64_t nReach) const {
    std::vector<SSegment> segments;
    segments.reserve(m_Edges.size());
    for (const SEdge& edge : m_Edges) {
        segments.push_back({AsPoint(edge.m_From - origin), AsPoint(edge.m_To - origin), edge.m_nIndex});
    }
    // What is as near along both axes is farther by the diagonal of a square.
    return {std::move(segments), static_cast<double>(nReach) * std::numbers::sqrt2};
}

}  // namespace nestrix::certify
