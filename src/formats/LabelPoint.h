#pragma once

#include <span>
#include <vector>

#include "geom/CPolygon.h"
#include "packing/SGrid.h"

namespace nestrix {

/// Where a piece has room for a label.
struct SLabelPoint {
    double m_X = 0.0;
    double m_Y = 0.0;
    double m_Room = 0.0;  ///< distance to the nearest edge; 0 where no inner point was found
};

/// One edge of a piece.
struct SLabelEdge {
    SPoint m_Start;
    SPoint m_End;
};

/// Finds a point well inside the edges, on a grid over them, in their coordinates. Not the centroid, which
/// lies outside an L or a U. What has no inside gets the middle of its vertices' extent.
/// @param edges of an outline and its holes, each ring closed.
[[nodiscard]] SLabelPoint FindLabelPoint(std::span<const SLabelEdge> edges);

/// The edges in the polygon's local coordinates.
[[nodiscard]] std::vector<SLabelEdge> EdgesOf(const CPolygon& polygon);

/// The edges of the outline and of the holes, as lengths.
[[nodiscard]] std::vector<SLabelEdge> EdgesOf(const SGridShape& shape, const SGrid& grid);

}  // namespace nestrix
