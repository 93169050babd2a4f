#pragma once

#include <span>

#include "drawing/SPath.h"

namespace nestrix {

/// A vertex of a polyline. The bulge is the tangent of a quarter of the arc that leads to the next vertex,
/// positive counter-clockwise; 0 for a straight line.
struct SBulgeVertex {
    SPoint m_At;
    double m_Bulge = 0.0;
};

/// The polyline as lines and arcs.
/// @param vertices at least one; when closed, the last one's bulge leads back to the first.
[[nodiscard]] SPath PolylinePath(std::span<const SBulgeVertex> vertices, bool bClosed);

[[nodiscard]] SPath CirclePath(SPoint centre, double radius);

/// Counter-clockwise from one angle to the other, in degrees; the whole circle where they are the same.
[[nodiscard]] SPath ArcPath(SPoint centre, double radius, double fromDegrees, double toDegrees);

/// From one parameter to the other, in radians, in the turn from the first radius to the second; the whole
/// ellipse where they are the same.
[[nodiscard]] SPath EllipsePath(SPoint centre, SPoint firstRadius, SPoint secondRadius, double from,
                                double to);

}  // namespace nestrix
