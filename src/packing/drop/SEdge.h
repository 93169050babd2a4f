#pragma once

#include <algorithm>
#include <vector>

#include "geom/CPolygon.h"

namespace nestrix {

/// One profile edge together with its ends, local to the polygon.
struct SEdge {
    mgVector3 m_Start;
    mgVector3 m_End;
    mgVector3 m_Direction;

    [[nodiscard]] bool IsVertical() const { return m_Direction.x == 0.0F; }
    [[nodiscard]] float LowX() const { return std::min(m_Start.x, m_End.x); }
    [[nodiscard]] float HighX() const { return std::max(m_Start.x, m_End.x); }

    [[nodiscard]] double Slope() const {
        return static_cast<double>(m_Direction.y) / static_cast<double>(m_Direction.x);
    }

    /// How far the height on the edge's line gets away from the start's, at most, anywhere on the edge at any
    /// offset in the strip: negative where the line falls.
    ///
    /// In the strip the ends are rounded to float while the slope keeps the local direction, so the line may
    /// run past the height of its other end: by the slope times three roundings of x, here taken as four.
    /// @param fLargestX no x in the strip is larger in absolute value.
    [[nodiscard]] double LargestRise(float fLargestX) const;
};

[[nodiscard]] std::vector<SEdge> EdgesOf(const CPolygon& polygon, const std::vector<CLine>& lines);

/// Whether sums and differences with this coordinate stay finite.
[[nodiscard]] bool IsMovable(float fCoordinate);

/// Whether all coordinates are movable, and all edges as the profile analysis makes them: each with its own
/// direction, front edges running right or vertical, back edges left.
[[nodiscard]] bool IsRegular(const CPolygon& polygon);

}  // namespace nestrix
