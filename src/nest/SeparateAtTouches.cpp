#include "nest/SeparateAtTouches.h"

#include <map>
#include <utility>

namespace nestrix {

namespace {

struct SSide {
    SGridPoint m_From;
    SGridPoint m_To;
};

void AppendSides(const CGridRing& ring, std::vector<SSide>& sides) {
    for (size_t i = 0; i < ring.size(); ++i) {
        sides.push_back({ring[i], ring[(i + 1) % ring.size()]});
    }
}

std::vector<SSide> SidesOf(const SGridShape& shape) {
    std::vector<SSide> sides;
    AppendSides(shape.m_Outline, sides);
    for (const CGridRing& hole : shape.m_Holes) {
        AppendSides(hole, sides);
    }
    return sides;
}

/// All points in which sides begin, in order.
CGridRing PointsOf(const std::vector<SSide>& sides) {
    CGridRing points;
    for (const SSide& side : sides) {
        points.push_back(side.m_From);
    }
    std::sort(points.begin(), points.end());
    return points;
}

/// Those of the points, in order, that lie between the ends of the side.
CGridRing PointsOn(const SSide& side, const CGridRing& points) {
    const SGridPoint low = std::min(side.m_From, side.m_To);
    const SGridPoint high = std::max(side.m_From, side.m_To);
    const int64_t nBottom = std::min(low.m_nY, high.m_nY);
    const int64_t nTop = std::max(low.m_nY, high.m_nY);
    CGridRing on;
    for (auto point = std::upper_bound(points.begin(), points.end(), low);
         point != points.end() && *point < high; ++point) {
        if (point->m_nY >= nBottom && point->m_nY <= nTop && Turn(low, high, *point) == 0) {
            on.push_back(*point);
        }
    }
    if (side.m_To < side.m_From) {
        std::reverse(on.begin(), on.end());
    }
    return on;
}

/// Whether no two sides begin in one point, and none has such a point in its middle.
bool TouchesNothing(const std::vector<SSide>& sides, const CGridRing& points) {
    return std::adjacent_find(points.begin(), points.end()) == points.end() &&
           std::all_of(sides.begin(), sides.end(),
                       [&](const SSide& side) { return PointsOn(side, points).empty(); });
}

/// Where the sides go that begin in a point.
using CWays = std::multimap<SGridPoint, SGridPoint>;

void TakeBackOrAdd(CWays& ways, SGridPoint from, SGridPoint to) {
    const auto [first, last] = ways.equal_range(to);
    const auto back = std::find_if(first, last, [from](const auto& way) { return way.second == from; });
    if (back != last) {
        ways.erase(back);
    } else if (from != to) {
        ways.emplace(from, to);
    }
}

/// The sides, cut where others begin, less those that others take back.
CWays WaysOf(const std::vector<SSide>& sides, const CGridRing& points) {
    CWays ways;
    for (const SSide& side : sides) {
        SGridPoint from = side.m_From;
        for (const SGridPoint point : PointsOn(side, points)) {
            TakeBackOrAdd(ways, from, point);
            from = point;
        }
        TakeBackOrAdd(ways, from, side.m_To);
    }
    return ways;
}

/// Whether one comes to b before c when one turns clockwise about the corner, beginning at a.
bool IsBefore(SGridPoint corner, SGridPoint a, SGridPoint b, SGridPoint c) {
    const CInt128 toB = Turn(corner, a, b);
    const CInt128 toC = Turn(corner, a, c);
    // Clockwise of a, then straight on, then counter-clockwise of it.
    const auto half = [](CInt128 turn) { return turn < 0 ? 0 : turn == 0 ? 1 : 2; };
    return half(toB) != half(toC) ? half(toB) < half(toC) : Turn(corner, b, c) < 0;
}

/// Follows the sides and turns left as sharply as they allow wherever several go on: what is to the left
/// before and after is then joined by more than the corner.
CGridRing TakeRing(CWays& ways) {
    CGridRing ring{ways.begin()->first};
    SGridPoint from = ways.begin()->first;
    SGridPoint at = ways.begin()->second;
    const SGridPoint first = at;
    ways.erase(ways.begin());
    while (true) {
        const auto [begin, end] = ways.equal_range(at);
        const auto next = std::min_element(
            begin, end, [&](const auto& b, const auto& c) { return IsBefore(at, from, b.second, c.second); });
        // The ring is closed where the sharpest turn is into its first side, which is gone by then.
        const bool bClosed = at == ring.front() && (next == end || IsBefore(at, from, first, next->second));
        if (bClosed || next == end) {
            return ring;
        }
        ring.push_back(at);
        from = at;
        at = next->second;
        ways.erase(next);
    }
}

bool IsInOrOn(SGridPoint point, const CGridRing& ring) {
    bool bInside = false;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SGridPoint a = ring[i];
        const SGridPoint b = ring[(i + 1) % ring.size()];
        const CInt128 side = Turn(a, b, point);
        if ((a.m_nY > point.m_nY) != (b.m_nY > point.m_nY) && (side > 0) == (b.m_nY > a.m_nY)) {
            bInside = !bInside;
        }
    }
    return bInside || std::find(ring.begin(), ring.end(), point) != ring.end();
}

/// Adds a hole to the smallest outline around it.
void AddHole(CGridRing hole, std::vector<SGridShape>& shapes) {
    SGridShape* pSmallest = nullptr;
    for (SGridShape& shape : shapes) {
        const CGridRing& outline = shape.m_Outline;
        const bool bAround =
            TwiceArea(outline) > -TwiceArea(hole) &&
            (pSmallest == nullptr || TwiceArea(outline) < TwiceArea(pSmallest->m_Outline)) &&
            std::all_of(hole.begin(), hole.end(), [&](SGridPoint point) { return IsInOrOn(point, outline); });
        if (bAround) {
            pSmallest = &shape;
        }
    }
    if (pSmallest != nullptr) {
        pSmallest->m_Holes.push_back(std::move(hole));
    }
}

}  // namespace

std::vector<SGridShape> SeparateAtTouches(const SGridShape& shape) {
    const std::vector<SSide> sides = SidesOf(shape);
    const CGridRing points = PointsOf(sides);
    if (TouchesNothing(sides, points)) {
        return {shape};
    }
    std::vector<SGridShape> shapes;
    std::vector<CGridRing> holes;
    for (CWays ways = WaysOf(sides, points); !ways.empty();) {
        CGridRing ring = TakeRing(ways);
        if (TwiceArea(ring) > 0) {
            shapes.push_back({std::move(ring), {}});
        } else {
            holes.push_back(std::move(ring));
        }
    }
    for (CGridRing& hole : holes) {
        AddHole(std::move(hole), shapes);
    }
    return shapes;
}

}  // namespace nestrix
