#include "SProfile.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

/// Coordinates up to here leave room for sums and differences without overflow.
constexpr float LARGEST_COORDINATE = 1e18F;

bool IsTame(float f) {
    return std::abs(f) <= LARGEST_COORDINATE;
}

bool IsTame(const mgVector3& v) {
    return IsTame(v.x) && IsTame(v.y);
}

bool AreTame(const std::vector<CPoint>& points) {
    return std::all_of(points.begin(), points.end(), [](const CPoint& p) { return IsTame(p.m_Position); });
}

/// One edge with the ends that its polygon's vertices give it.
struct SEdge {
    mgVector3 m_Start;
    mgVector3 m_End;
    mgVector3 m_Direction;

    [[nodiscard]] double Slope() const {
        return static_cast<double>(m_Direction.y) / static_cast<double>(m_Direction.x);
    }
    [[nodiscard]] float LowX() const { return std::min(m_Start.x, m_End.x); }
    [[nodiscard]] float HighX() const { return std::max(m_Start.x, m_End.x); }
};

std::vector<SEdge> EdgesOf(const CPolygon& polygon, const std::vector<CLine>& lines) {
    std::vector<SEdge> edges;
    for (const CLine& line : lines) {
        edges.push_back(
            {polygon.PositionOf(line.m_nStart), polygon.PositionOf(line.m_nEnd), line.m_Direction});
    }
    return edges;
}

bool RunsRight(const SEdge& edge) {
    const bool bVertical = edge.m_Direction.x == 0.0F && edge.m_Start.x == edge.m_End.x;
    return IsTame(edge.m_Direction) &&
           (bVertical || (edge.m_Direction.x > 0.0F && edge.m_Start.x <= edge.m_End.x));
}

bool RunsLeft(const SEdge& edge) {
    return IsTame(edge.m_Direction) && edge.m_Direction.x < 0.0F && edge.m_Start.x >= edge.m_End.x;
}

/// The largest distance in height, on the edge's line, between the edge's start and anything on the edge at
/// any offset in the strip: negative where the line falls.
///
/// In the strip the ends are rounded to float while the slope keeps the local direction, so the line may run
/// past the height of its other end: by the slope times three roundings of x, here taken as four.
double RiseOf(const SEdge& edge, float fReach) {
    const double length =
        std::abs(static_cast<double>(edge.m_Direction.x)) + std::ldexp(static_cast<double>(fReach), -22);
    return edge.m_Direction.x < 0.0F ? -edge.Slope() * length : edge.Slope() * length;
}

void FindBounds(const std::vector<SEdge>& edges, float fReach, SHalfProfile& half) {
    if (half.m_Y.empty()) {
        return;
    }
    half.m_fLow = std::numeric_limits<double>::infinity();
    half.m_fHigh = -half.m_fLow;
    const auto include = [&half](double height) {
        half.m_fLow = std::min(half.m_fLow, height);
        half.m_fHigh = std::max(half.m_fHigh, height);
    };
    for (const float fY : half.m_Y) {
        include(static_cast<double>(fY));
    }
    for (size_t i = 0; i < edges.size(); ++i) {
        const double start = static_cast<double>(half.m_Y[half.m_nPoints + i]);
        const double rise = RiseOf(edges[i], fReach);
        // Covers the arithmetic in double, here and in the sweeps.
        const double slack = 1e-12 * (std::abs(start) + std::abs(rise));
        include(start + rise - slack);
        include(start + rise + slack);
    }
}

void SortPoints(std::vector<CPoint>& points) {
    std::stable_sort(points.begin(), points.end(),
                     [](const CPoint& a, const CPoint& b) { return a.m_Position.x < b.m_Position.x; });
}

void SortByLowX(std::vector<SEdge>& edges) {
    std::stable_sort(edges.begin(), edges.end(),
                     [](const SEdge& a, const SEdge& b) { return a.LowX() < b.LowX(); });
}

/// @param frame its starting height is added to every y.
SHalfProfile MakeHalf(std::vector<CPoint> points, std::vector<SEdge> edges, const SProfileFrame& frame) {
    SortPoints(points);
    SortByLowX(edges);
    SHalfProfile half;
    half.m_nPoints = points.size();
    half.m_nEdges = edges.size();
    half.m_X.resize(points.size() + 3 * edges.size());
    for (size_t i = 0; i < points.size(); ++i) {
        half.m_X[i] = points[i].m_Position.x;
        half.m_Y.push_back(points[i].m_Position.y + frame.m_fStartY);
    }
    float fReach = -std::numeric_limits<float>::infinity();
    for (size_t i = 0; i < edges.size(); ++i) {
        fReach = std::max(fReach, edges[i].HighX());
        half.m_X[half.LowEnds() + i] = edges[i].LowX();
        half.m_X[half.HighEnds() + i] = edges[i].HighX();
        half.m_X[half.Reaches() + i] = fReach;
        half.m_Y.push_back(edges[i].m_Start.y + frame.m_fStartY);
        half.m_Slopes.push_back(edges[i].Slope());
    }
    FindBounds(edges, frame.m_fReach, half);
    return half;
}

std::vector<SVerticalSide> TakeVerticals(std::vector<SEdge>& edges, float fStartY) {
    std::vector<SVerticalSide> verticals;
    std::erase_if(edges, [&](const SEdge& edge) {
        const bool bVertical = edge.m_Direction.x == 0.0F;
        if (bVertical) {
            const auto [fLow, fHigh] = std::minmax(edge.m_Start.y, edge.m_End.y);
            verticals.push_back({edge.m_Start.x, fLow + fStartY, fHigh + fStartY});
        }
        return bVertical;
    });
    return verticals;
}

}  // namespace

std::optional<SProfile> PrepareProfile(const CPolygon& polygon, const SProfileFrame& frame) {
    std::vector<SEdge> front = EdgesOf(polygon, polygon.m_FrontLines);
    std::vector<SEdge> back = EdgesOf(polygon, polygon.m_BackLines);
    const bool bTame = IsTame(polygon.m_BoundingBoxMin) && IsTame(polygon.m_BoundingBoxMax) &&
                       AreTame(polygon.m_Points) && AreTame(polygon.m_FrontPoints) &&
                       AreTame(polygon.m_BackPoints) && IsTame(frame.m_fStartY) && IsTame(frame.m_fReach) &&
                       std::all_of(front.begin(), front.end(), RunsRight) &&
                       std::all_of(back.begin(), back.end(), RunsLeft);
    if (!bTame) {
        return std::nullopt;
    }
    SProfile profile;
    profile.m_Verticals = TakeVerticals(front, frame.m_fStartY);
    profile.m_Front = MakeHalf(polygon.m_FrontPoints, std::move(front), frame);
    profile.m_Front.m_nStarts = profile.m_Front.LowEnds();
    profile.m_Back = MakeHalf(polygon.m_BackPoints, std::move(back), {0.0F, frame.m_fReach});
    profile.m_Back.m_nStarts = profile.m_Back.HighEnds();
    return profile;
}
