#pragma once

#include "drawing/SPath.h"

namespace nestrix {

/// An arc of an ellipse as drawing programs know it: with its axes, counter-clockwise.
struct SEllipseArc {
    SPoint m_Centre;
    SPoint m_MajorAxis;    ///< half of it
    double m_Ratio = 1.0;  ///< of the minor axis, which is a quarter turn to the left, to the major one
    double m_From = 0.0;   ///< radians, 0 at the end of the major axis; before m_To
    double m_To = 0.0;
};

/// The same arc, perhaps the other way round.
[[nodiscard]] SEllipseArc WithAxes(const SArcTo& arc);

/// Whether the two radii are those of a circle, but for rounding.
[[nodiscard]] bool IsCircular(const SArcTo& arc);

/// Whether both are parts of one ellipse that is walked the same way, but for rounding.
[[nodiscard]] bool AreOfOneEllipse(const SArcTo& a, const SArcTo& b);

/// The sweep as it is seen: positive counter-clockwise.
[[nodiscard]] double SeenSweep(const SArcTo& arc);

}  // namespace nestrix
