#include "formats/LabelPoint.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace nestrix {

namespace {

/// Odd, so that the middle of a rectangle is on the grid.
constexpr int GRID_LINES = 15;
constexpr double CLEARLY_MORE = 1.05;

struct SExtent {
    double m_Low = std::numeric_limits<double>::infinity();
    double m_High = -std::numeric_limits<double>::infinity();

    void Include(double value) {
        m_Low = std::min(m_Low, value);
        m_High = std::max(m_High, value);
    }
    [[nodiscard]] double At(int nLine) const {
        return m_Low + (m_High - m_Low) * (nLine + 1) / (GRID_LINES + 1);
    }
};

/// Whether a ray from the point to the left crosses the edge.
bool Crosses(const SLabelEdge& edge, double x, double y) {
    const auto& [start, end] = edge;
    if ((start.m_Y > y) == (end.m_Y > y)) {
        return false;
    }
    const double slope = (end.m_X - start.m_X) / (end.m_Y - start.m_Y);
    return start.m_X + slope * (y - start.m_Y) < x;
}

double DistanceTo(const SLabelEdge& edge, double x, double y) {
    const auto& [start, end] = edge;
    const double edgeX = end.m_X - start.m_X;
    const double edgeY = end.m_Y - start.m_Y;
    const double square = edgeX * edgeX + edgeY * edgeY;
    const double along = square > 0.0 ? ((x - start.m_X) * edgeX + (y - start.m_Y) * edgeY) / square : 0.0;
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(x - start.m_X - part * edgeX, y - start.m_Y - part * edgeY);
}

/// Tells of places how much room there is around them.
class CRoom {
public:
    explicit CRoom(std::span<const SLabelEdge> edges) : m_Edges(edges) {}

    /// The distance to the nearest edge, 0 outside the piece or if it is no more than `enough`.
    double At(double x, double y, double enough) {
        // The edge that was too near the last place is mostly too near this one.
        if (!m_Edges.empty() && DistanceTo(m_Edges[m_nTooNear], x, y) <= enough) {
            return 0.0;
        }
        bool bInside = false;
        double room = std::numeric_limits<double>::infinity();
        for (size_t i = 0; i < m_Edges.size(); ++i) {
            bInside ^= Crosses(m_Edges[i], x, y);
            room = std::min(room, DistanceTo(m_Edges[i], x, y));
            if (room <= enough) {
                m_nTooNear = i;
                return 0.0;
            }
        }
        return bInside ? room : 0.0;
    }

private:
    std::span<const SLabelEdge> m_Edges;
    size_t m_nTooNear = 0;
};

void AddEdges(const CGridRing& ring, const SGrid& grid, std::vector<SLabelEdge>& edges) {
    for (size_t i = 0; i < ring.size(); ++i) {
        const SGridPoint start = ring[i];
        const SGridPoint end = ring[i + 1 < ring.size() ? i + 1 : 0];
        edges.push_back({{grid.Length(start.m_nX), grid.Length(start.m_nY)},
                         {grid.Length(end.m_nX), grid.Length(end.m_nY)}});
    }
}

}  // namespace

SLabelPoint FindLabelPoint(std::span<const SLabelEdge> edges) {
    SExtent across;
    SExtent upward;
    for (const SLabelEdge& edge : edges) {  // every vertex is the start of an edge
        across.Include(edge.m_Start.m_X);
        upward.Include(edge.m_Start.m_Y);
    }
    const int nMiddle = GRID_LINES / 2;
    SLabelPoint best{across.At(nMiddle), upward.At(nMiddle), 0.0};
    CRoom room(edges);
    best.m_Room = room.At(best.m_X, best.m_Y, 0.0);
    for (int i = 0; i < GRID_LINES * GRID_LINES; ++i) {
        const double x = across.At(i % GRID_LINES);
        const double y = upward.At(i / GRID_LINES);
        // A little more room is not worth leaving the middle for.
        const double more = room.At(x, y, CLEARLY_MORE * best.m_Room);
        if (more > 0.0) {
            best = {x, y, more};
        }
    }
    return best;
}

std::vector<SLabelEdge> EdgesOf(const CPolygon& polygon) {
    std::vector<SLabelEdge> edges;
    for (const CLine& line : polygon.m_Lines) {
        const mgVector3& start = polygon.PositionOf(line.m_nStart);
        const mgVector3& end = polygon.PositionOf(line.m_nEnd);
        edges.push_back({{start.x, start.y}, {end.x, end.y}});
    }
    return edges;
}

std::vector<SLabelEdge> EdgesOf(const SGridShape& shape, const SGrid& grid) {
    std::vector<SLabelEdge> edges;
    AddEdges(shape.m_Outline, grid, edges);
    for (const CGridRing& hole : shape.m_Holes) {
        AddEdges(hole, grid, edges);
    }
    return edges;
}

}  // namespace nestrix
