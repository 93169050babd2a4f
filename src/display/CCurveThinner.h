#pragma once

#include <span>
#include <vector>

#include "geom/Vector.h"

namespace nestrix {

/// Leaves out those points of a long curve that nobody could see, so that painting a run of a million
/// generations costs what the canvas has pixels, and not what the run has generations: the window stays
/// live however long the run.
///
/// Within one column of pixels a polyline covers all rows between its lowest and its highest point, and
/// dots in one pixel lie upon each other; the rest can go. A curve with few points per column keeps them all.
class CCurveThinner {
public:
    /// Forgets all points. Positions will be in pixels, on a canvas of so many rows.
    void Begin(int nRows);

    /// Appends a point. x must not decrease. Positions that are not finite interrupt the curve.
    void Add(const mgVector3& position);

    /// Closes the curve after the last point.
    void End() { EndColumn(); }

    [[nodiscard]] std::span<const mgVector3> Line() const { return m_Line; }
    [[nodiscard]] std::span<const mgVector3> Dots() const { return m_Dots; }

private:
    void BeginColumn(const mgVector3& position);
    void EndColumn();
    void AddDot(const mgVector3& position);

    std::vector<mgVector3> m_Line;
    std::vector<mgVector3> m_Dots;

    // The column being filled: its points that the line needs, and when each came.
    struct SExtreme {
        mgVector3 m_Position;
        int m_nIndex = 0;
    };
    float m_fColumn = 0.0F;
    int m_nInColumn = 0;
    SExtreme m_First;
    SExtreme m_Lowest;
    SExtreme m_Highest;
    SExtreme m_Last;
    int m_nStamp = 0;             ///< tells this column's dots from those of columns before
    std::vector<int> m_RowStamp;  ///< per row, the stamp of the last column that has a dot there
};

}  // namespace nestrix
