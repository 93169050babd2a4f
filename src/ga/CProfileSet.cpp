#include "CProfileSet.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "Lanes.h"
#include "SEdge.h"

namespace {

/// A half profile under construction: sorted, not yet laid out.
struct SHalfDraft {
    std::vector<mgVector3> m_Points;
    std::vector<SEdge> m_Edges;
    bool m_bStartsLow;
};

/// Both halves of one polygon under construction.
struct SProfileDraft {
    SHalfDraft m_Front;
    SHalfDraft m_Back;
    std::vector<SEdge> m_Verticals;
};

std::vector<mgVector3> PositionsOf(const std::vector<CPoint>& points) {
    std::vector<mgVector3> positions;
    for (const CPoint& point : points) {
        positions.push_back(point.m_Position);
    }
    return positions;
}

SProfileDraft Draft(const CPolygon& polygon) {
    SProfileDraft draft{{PositionsOf(polygon.m_FrontPoints), EdgesOf(polygon, polygon.m_FrontLines), true},
                        {PositionsOf(polygon.m_BackPoints), EdgesOf(polygon, polygon.m_BackLines), false},
                        {}};
    std::vector<SEdge>& front = draft.m_Front.m_Edges;
    const auto verticals = std::stable_partition(front.begin(), front.end(),
                                                 [](const SEdge& edge) { return !edge.IsVertical(); });
    draft.m_Verticals.assign(verticals, front.end());
    front.erase(verticals, front.end());

    const auto byHeight = [](const mgVector3& a, const mgVector3& b) { return a.y < b.y; };
    const auto byLowX = [](const SEdge& a, const SEdge& b) { return a.LowX() < b.LowX(); };
    std::stable_sort(draft.m_Front.m_Points.begin(), draft.m_Front.m_Points.end(), byHeight);
    std::stable_sort(draft.m_Back.m_Points.rbegin(), draft.m_Back.m_Points.rend(), byHeight);
    std::stable_sort(front.begin(), front.end(), byLowX);
    std::stable_sort(draft.m_Back.m_Edges.begin(), draft.m_Back.m_Edges.end(), byLowX);
    return draft;
}

/// Finds m_fLow and m_fHigh.
void FindBounds(const SHalfDraft& draft, float fLift, float fReach, SHalfProfile& half) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    const auto include = [&](double height) {
        low = std::min(low, height);
        high = std::max(high, height);
    };
    for (const mgVector3& point : draft.m_Points) {
        include(static_cast<double>(point.y + fLift));
    }
    for (const SEdge& edge : draft.m_Edges) {
        const double start = static_cast<double>(edge.m_Start.y + fLift);
        include(start);
        include(start + edge.LargestRise(fReach));
    }
    if (low <= high) {
        // More than the rounding to float here and in double in the sweeps.
        const double slack = (std::abs(low) + std::abs(high)) * 0x1p-22;
        half.m_fLow = static_cast<float>(low - slack);
        half.m_fHigh = static_cast<float>(high + slack);
    }
}

/// Lays the draft out behind what `values` and `slopes` hold already, where there must be room for it.
/// @param fLift added to every y.
SHalfProfile LayOut(const SHalfDraft& draft, float fLift, float fReach, std::vector<float>& values,
                    std::vector<double>& slopes) {
    SHalfProfile half;
    half.m_nPoints = static_cast<uint32_t>(draft.m_Points.size());
    half.m_nEdges = static_cast<uint32_t>(draft.m_Edges.size());
    half.m_nPointLanes = static_cast<uint32_t>(RoundUpToLanes(half.m_nPoints));
    half.m_nEdgeLanes = static_cast<uint32_t>(RoundUpToLanes(half.m_nEdges));
    half.m_nStarts = static_cast<uint32_t>(draft.m_bStartsLow ? half.LowEnds() : half.HighEnds());

    const size_t nX = values.size();
    const size_t nY = nX + half.CountX();
    values.resize(nY + half.CountY(), GA_LANE_FILLER);
    for (size_t i = 0; i < draft.m_Points.size(); ++i) {
        values[nX + i] = draft.m_Points[i].x;
        values[nY + i] = draft.m_Points[i].y + fLift;
    }
    half.m_pSlopes = slopes.data() + slopes.size();
    float fLargest = -std::numeric_limits<float>::infinity();
    for (size_t i = 0; i < draft.m_Edges.size(); ++i) {
        const SEdge& edge = draft.m_Edges[i];
        fLargest = std::max(fLargest, edge.HighX());
        values[nX + half.LowEnds() + i] = edge.LowX();
        values[nX + half.HighEnds() + i] = edge.HighX();
        values[nX + half.Reaches() + i] = fLargest;
        values[nY + half.m_nPointLanes + i] = edge.m_Start.y + fLift;
        slopes.push_back(edge.Slope());
    }
    half.m_pX = values.data() + nX;
    half.m_pY = values.data() + nY;
    FindBounds(draft, fLift, fReach, half);
    return half;
}

size_t CountValues(const SHalfDraft& draft) {
    return 2 * RoundUpToLanes(draft.m_Points.size()) + 4 * RoundUpToLanes(draft.m_Edges.size());
}

}  // namespace

CProfileSet::CProfileSet(std::span<const CPolygon> polygons, float fStartY, float fReach) {
    m_bComplete = IsTame(fStartY) && IsTame(fReach) &&
                  std::all_of(polygons.begin(), polygons.end(), [](const CPolygon& p) { return IsTame(p); });
    if (!m_bComplete) {
        return;
    }
    std::vector<SProfileDraft> drafts;
    size_t nValues = 0;
    size_t nSlopes = 0;
    size_t nVerticals = 0;
    for (const CPolygon& polygon : polygons) {
        const SProfileDraft& draft = drafts.emplace_back(Draft(polygon));
        nValues += CountValues(draft.m_Front) + CountValues(draft.m_Back);
        nSlopes += draft.m_Front.m_Edges.size() + draft.m_Back.m_Edges.size();
        nVerticals += draft.m_Verticals.size();
    }
    m_Values.reserve(nValues);
    m_Slopes.reserve(nSlopes);
    m_Verticals.reserve(nVerticals);
    for (const SProfileDraft& draft : drafts) {
        SProfile& profile = m_Profiles.emplace_back();
        profile.m_Front = LayOut(draft.m_Front, fStartY, fReach, m_Values, m_Slopes);
        profile.m_Back = LayOut(draft.m_Back, 0.0F, fReach, m_Values, m_Slopes);
        const SVerticalSide* const pVerticals = m_Verticals.data() + m_Verticals.size();
        for (const SEdge& edge : draft.m_Verticals) {
            const auto [fLow, fHigh] = std::minmax(edge.m_Start.y, edge.m_End.y);
            m_Verticals.push_back({edge.m_Start.x, fLow + fStartY, fHigh + fStartY});
        }
        profile.m_Verticals = {pVerticals, draft.m_Verticals.size()};
    }
}

size_t CProfileSet::CountBackPoints() const {
    size_t nPoints = 0;
    for (const SProfile& profile : m_Profiles) {
        nPoints += profile.m_Back.m_nPoints;
    }
    return nPoints;
}

size_t CProfileSet::LargestFront() const {
    size_t nLargest = 0;
    for (const SProfile& profile : m_Profiles) {
        nLargest = std::max(nLargest, profile.m_Front.CountX());
    }
    return nLargest;
}
