#include "packing/drop/CProfileSet.h"

#include <algorithm>

#include "base/Lanes.h"
#include "packing/drop/ProfileCells.h"
#include "packing/drop/SEdge.h"

namespace nestrix {

namespace {

std::vector<mgVector3> PositionsOf(const std::vector<CPoint>& points) {
    std::vector<mgVector3> positions;
    for (const CPoint& point : points) {
        positions.push_back(point.m_Position);
    }
    return positions;
}

void TurnUpsideDown(std::vector<mgVector3>& positions) {
    for (mgVector3& position : positions) {
        position.y = -position.y;
    }
}

void TurnUpsideDown(std::vector<SEdge>& edges) {
    for (SEdge& edge : edges) {
        for (mgVector3* const pVector : {&edge.m_Start, &edge.m_End, &edge.m_Direction}) {
            pVector->y = -pVector->y;
        }
    }
}

SProfilePoints LayOut(std::vector<mgVector3> positions) {
    std::stable_sort(positions.begin(), positions.end(),
                     [](const mgVector3& a, const mgVector3& b) { return a.y < b.y; });
    SProfilePoints points;
    points.m_nCount = positions.size();
    const size_t nLanes = RoundUpToLanes(positions.size());
    points.m_X.resize(nLanes, LANE_FILLER);
    points.m_Y.resize(nLanes, LANE_FILLER);
    for (size_t i = 0; i < positions.size(); ++i) {
        points.m_X[i] = positions[i].x;
        points.m_Y[i] = positions[i].y;
    }
    return points;
}

/// @param edges sorted by low x.
std::vector<float> RightsSoFar(const std::vector<SEdge>& edges) {
    std::vector<float> rights(RoundUpToLanes(edges.size()), LANE_FILLER);
    float fLargest = -std::numeric_limits<float>::infinity();
    for (size_t i = 0; i < edges.size(); ++i) {
        fLargest = std::max(fLargest, edges[i].HighX());
        rights[i] = fLargest;
    }
    return rights;
}

SProfileEdges LayOut(std::vector<SEdge> draft, float fLargestX) {
    std::stable_sort(draft.begin(), draft.end(),
                     [](const SEdge& a, const SEdge& b) { return a.LowX() < b.LowX(); });
    SProfileEdges edges;
    edges.m_nCount = draft.size();
    const size_t nLanes = RoundUpToLanes(draft.size() + LANES);
    edges.m_LowX.resize(nLanes, LANE_FILLER);
    edges.m_HighX.resize(nLanes, LANE_FILLER);
    edges.m_StartY.resize(nLanes, LANE_FILLER);
    edges.m_Slopes.resize(nLanes);
    for (size_t i = 0; i < draft.size(); ++i) {
        edges.m_LowX[i] = draft[i].LowX();
        edges.m_HighX[i] = draft[i].HighX();
        edges.m_StartY[i] = draft[i].m_Start.y;
        edges.m_Slopes[i] = draft[i].Slope();
        edges.m_fRight = i == 0 ? draft[i].HighX() : std::max(edges.m_fRight, draft[i].HighX());
    }
    // With more edges than this, cells pay. Measured: 8 to 16 are as good.
    constexpr size_t FEW = 12;
    if (draft.size() <= FEW) {
        edges.m_RightsSoFar = RightsSoFar(draft);
    } else {
        CutIntoCells(draft, fLargestX, edges);
    }
    return edges;
}

SRange FindBounds(const std::vector<mgVector3>& points, const std::vector<SEdge>& edges, float fLargestX) {
    double low = std::numeric_limits<double>::infinity();
    double high = -low;
    const auto include = [&](double height) {
        low = std::min(low, height);
        high = std::max(high, height);
    };
    for (const mgVector3& point : points) {
        include(static_cast<double>(point.y));
    }
    for (const SEdge& edge : edges) {
        const double start = static_cast<double>(edge.m_Start.y);
        include(start);
        include(start + edge.LargestRise(fLargestX));
    }
    if (low > high) {
        return {0.0F, 0.0F};
    }
    return {static_cast<float>(low), static_cast<float>(high)};
}

SHalfProfile PrepareFront(const CPolygon& polygon, std::vector<SEdge> edges, float fLargestX) {
    std::vector<mgVector3> points = PositionsOf(polygon.m_FrontPoints);
    const SRange y = FindBounds(points, edges, fLargestX);
    TurnUpsideDown(edges);
    return {LayOut(std::move(points)), LayOut(std::move(edges), fLargestX), y};
}

SHalfProfile PrepareBack(const CPolygon& polygon, float fLargestX) {
    std::vector<mgVector3> points = PositionsOf(polygon.m_BackPoints);
    std::vector<SEdge> edges = EdgesOf(polygon, polygon.m_BackLines);
    const SRange y = FindBounds(points, edges, fLargestX);
    TurnUpsideDown(points);
    return {LayOut(std::move(points)), LayOut(std::move(edges), fLargestX), y};
}

SProfile Prepare(const CPolygon& polygon, float fLargestX) {
    SProfile profile;
    std::vector<SEdge> front = EdgesOf(polygon, polygon.m_FrontLines);
    std::erase_if(front, [&](const SEdge& edge) {
        if (edge.IsVertical()) {
            const auto [fLow, fHigh] = std::minmax(edge.m_Start.y, edge.m_End.y);
            profile.m_Verticals.push_back({edge.m_Start.x, fLow, fHigh});
        }
        return edge.IsVertical();
    });
    profile.m_Front = PrepareFront(polygon, std::move(front), fLargestX);
    profile.m_Back = PrepareBack(polygon, fLargestX);
    return profile;
}

}  // namespace

CProfileSet::CProfileSet(std::span<const CPolygon> polygons, float fLargestX,
                         const CRelaxed<bool>* pAbandoned)
    : m_bComplete(IsMovable(fLargestX) && std::all_of(polygons.begin(), polygons.end(),
                                                      [](const CPolygon& p) { return IsRegular(p); })) {
    if (!m_bComplete) {
        return;
    }
    m_Profiles.reserve(polygons.size());
    for (const CPolygon& polygon : polygons) {
        if (IsMade(pAbandoned)) {
            m_bComplete = false;
            return;
        }
        m_Profiles.push_back(Prepare(polygon, fLargestX));
    }
}

bool CProfileSet::HasVerticals() const {
    return std::any_of(m_Profiles.begin(), m_Profiles.end(),
                       [](const SProfile& profile) { return !profile.m_Verticals.empty(); });
}

size_t CProfileSet::CountBackPoints() const {
    size_t nPoints = 0;
    for (const SProfile& profile : m_Profiles) {
        nPoints += profile.m_Back.m_Points.m_nCount;
    }
    return nPoints;
}

}  // namespace nestrix
