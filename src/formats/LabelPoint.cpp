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

/// The distance to the nearest edge, 0 outside the outline or if it is no more than `enough`.
double RoomAt(const CPolygon& polygon, double x, double y, double enough) {
    bool bInside = false;
    double room = std::numeric_limits<double>::infinity();
    for (const CLine& line : polygon.m_Lines) {
        const mgVector3& start = polygon.PositionOf(line.m_nStart);
        const mgVector3& end = polygon.PositionOf(line.m_nEnd);
        bInside ^= Crosses(start, end, x, y);
        room = std::min(room, DistanceToEdge(start, end, x, y));
        if (room <= enough) {
            return 0.0;
        }
    }
    return bInside ? room : 0.0;
}

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
    best.m_Room = RoomAt(polygon, best.m_X, best.m_Y, 0.0);
    for (int i = 0; i < GRID_LINES * GRID_LINES; ++i) {
        const double x = across.At(i % GRID_LINES);
        const double y = upward.At(i / GRID_LINES);
        // A little more room is not worth leaving the middle for.
        const double room = RoomAt(polygon, x, y, CLEARLY_MORE * best.m_Room);
        if (room > 0.0) {
            best = {x, y, room};
        }
    }
    return best;
}

}  // namespace nestrix
