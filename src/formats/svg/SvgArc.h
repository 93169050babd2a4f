#pragma once

#include "drawing/SPath.h"

namespace nestrix {

/// What an "A" command of path data says of its arc. Angles turn from the x axis towards the y axis, wherever
/// that points: down in a file, up in a drawing.
struct SSvgArc {
    double m_FirstRadius = 0.0;
    double m_SecondRadius = 0.0;
    double m_Degrees = 0.0;   ///< by which the first radius is turned from the x axis
    bool m_bLarge = false;    ///< more than half of the ellipse
    bool m_bForward = false;  ///< t grows along it
};

/// The stretch that an "A" command draws, in the coordinates of its points. Radii that are too short for the
/// points grow until they reach; an arc without a radius is a straight line.
/// @param start other than `end`: no arc is drawn between equal points.
[[nodiscard]] CStretch StretchOf(SPoint start, const SSvgArc& arc, SPoint end);

/// The ellipse that an arc lies on, with perpendicular radii, and the direction in which the arc runs; never
/// large. The inverse of StretchOf for arcs of up to half of an ellipse.
[[nodiscard]] SSvgArc SvgArcOf(const SArcTo& arc);

/// The arc in as many equal parts as are needed for none to be longer than a quarter of its ellipse. Between
/// points that lie nearly opposite, the place of an ellipse's centre would hang on the last digits of the
/// points, and between equal ones there is no arc at all.
[[nodiscard]] std::vector<SArcTo> InQuarters(const SArcTo& arc);

}  // namespace nestrix
