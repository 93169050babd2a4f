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

    void Include(float value) {
        m_Low = std::min<double>(m_Low, value);
        m_High = std::max<double>(m_High, value);
    }
    [[nodiscard]] double At(int nLine) const {
        return m_Low + (m_High - m_Low) * (nLine + 1) / (GRID_LINES + 1);
    }
};

/// Whether a ray from the point to the left crosses the edge.
bool Crosses(const mgVector3& start, const mgVector3& end, double x, double y) {
    if ((start.y > y) == (end.y > y)) {
        return false;
    }
    const double slope = (double{end.x} - start.x) / (double{end.y} - start.y);
    return start.x + slope * (y - start.y) < x;
}

double DistanceToEdge(const mgVector3& start, const mgVector3& end, double x, double y) {
    const double edgeX = double{end.x} - start.x;
    const double edgeY = double{end.y} - start.y;
    const double square = edgeX * edgeX + edgeY * edgeY;
    const double along = square > 0.0 ? ((x - start.x) * edgeX + (y - start.y) * edgeY) / square : 0.0;
    const double part = std::clamp(along, 0.0, 1.0);
    return std::hypot(x - start.x - part * edgeX, y - start.y - part * edgeY);
}

/// Tells of places how much room there is around them.
class CRoom {
public:
    explicit CRoom(const CPolygon& polygon) : m_Polygon(polygon) {}

    /// The distance to the nearest edge, 0 outside the outline or if it is no more than `enough`.
    double At(double x, double y, double enough) {
        // The edge that was too near the last place is mostly too near this one.
        if (!m_Polygon.m_Lines.empty() && DistanceTo(m_nTooNear, x, y) <= enough) {
            return 0.0;
        }
        bool bInside = false;
        double room = std::numeric_limits<double>::infinity();
        for (size_t i = 0; i < m_Polygon.m_Lines.size(); ++i) {
            bInside ^= Crosses(StartOf(i), EndOf(i), x, y);
            room = std::min(room, DistanceTo(i, x, y));
            if (room <= enough) {
                m_nTooNear = i;
                return 0.0;
            }
        }
        return bInside ? room : 0.0;
    }

private:
    [[nodiscard]] const mgVector3& StartOf(size_t i) const {
        return m_Polygon.PositionOf(m_Polygon.m_Lines[i].m_nStart);
    }
    [[nodiscard]] const mgVector3& EndOf(size_t i) const {
        return m_Polygon.PositionOf(m_Polygon.m_Lines[i].m_nEnd);
    }
    [[nodiscard]] double DistanceTo(size_t i, double x, double y) const {
        return DistanceToEdge(StartOf(i), EndOf(i), x, y);
    }

    const CPolygon& m_Polygon;
    size_t m_nTooNear = 0;
};

}  // namespace

SLabelPoint FindLabelPoint(const CPolygon& polygon) {
    SExtent across;
    SExtent upward;
    for (const CPoint& point : polygon.m_Points) {
        across.Include(point.m_Position.x);
        upward.Include(point.m_Position.y);
    }
    const int nMiddle = GRID_LINES / 2;
    SLabelPoint best{across.At(nMiddle), upward.At(nMiddle), 0.0};
    CRoom room(polygon);
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

}  // namespace nestrix
