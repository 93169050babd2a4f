#pragma once

#include <algorithm>
#include <cstdint>
#include <limits>
#include <span>

#include "packing/SGrid.h"

namespace nestrix {

__extension__ using CInt128 = __int128;

/// Twice the signed area of the triangle a, b, c: positive where c is to the left of the line from a to b.
/// Exact for points of the grid.
[[nodiscard]] inline CInt128 Turn(SGridPoint a, SGridPoint b, SGridPoint c) {
    return static_cast<CInt128>(b.m_nX - a.m_nX) * (c.m_nY - a.m_nY) -
           static_cast<CInt128>(b.m_nY - a.m_nY) * (c.m_nX - a.m_nX);
}

/// A box of the grid, its borders included; empty before the first point.
struct SGridBox {
    SGridPoint m_Low{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::max()};
    SGridPoint m_High{std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::min()};

    void Include(SGridPoint point) {
        m_Low = {std::min(m_Low.m_nX, point.m_nX), std::min(m_Low.m_nY, point.m_nY)};
        m_High = {std::max(m_High.m_nX, point.m_nX), std::max(m_High.m_nY, point.m_nY)};
    }
    [[nodiscard]] int64_t Width() const { return m_High.m_nX - m_Low.m_nX; }
    [[nodiscard]] int64_t Height() const { return m_High.m_nY - m_Low.m_nY; }
};

[[nodiscard]] inline SGridBox BoxOf(std::span<const SGridPoint> points) {
    SGridBox box;
    for (const SGridPoint point : points) {
        box.Include(point);
    }
    return box;
}

/// Twice the signed area, positive for a counter-clockwise ring.
[[nodiscard]] CInt128 TwiceArea(std::span<const SGridPoint> ring);

/// The convex hull, counter-clockwise (Andrew's monotone chain, 1979).
[[nodiscard]] CGridRing HullOf(CGridRing points);

/// The ring without points that repeat the one before and without those in the middle of a straight line,
/// also one that runs back on itself; counter-clockwise if asked for, clockwise otherwise.
/// @return fewer than three points for a ring without inside.
[[nodiscard]] CGridRing Cleaned(std::span<const SGridPoint> ring, bool bCounterClockwise);

/// The shape with its outline cleaned and counter-clockwise, its holes cleaned and clockwise. Holes without
/// inside are left out.
[[nodiscard]] SGridShape Cleaned(const SGridShape& shape);

/// Whether two edges of the shape cross, each at an inner point of the other, or run over each other in the
/// same direction. Touching is no crossing: an outline may meet itself, and its holes.
[[nodiscard]] bool CrossesItself(const SGridShape& shape);

}  // namespace nestrix
