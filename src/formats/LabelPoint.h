#pragma once

#include "geom/CPolygon.h"

namespace nestrix {

/// Where a piece has room for a label.
struct SLabelPoint {
    double m_X = 0.0;  ///< local to the polygon
    double m_Y = 0.0;
    double m_Room = 0.0;  ///< distance to the nearest edge; 0 where no inner point was found
};

/// Finds a point well inside the outline, on a grid over it. Not the centroid, which lies outside an L or a
/// U. A polygon without an inside gets the middle of its vertices' extent.
[[nodiscard]] SLabelPoint FindLabelPoint(const CPolygon& polygon);

}  // namespace nestrix
