#pragma once

#include <variant>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// Straight on to a point.
struct SLineTo {
    SPoint m_End;

    friend bool operator==(const SLineTo&, const SLineTo&) = default;
};

/// An arc of an ellipse or of a circle: the points centre + first · cos t + second · sin t, for t from m_From
/// over m_Sweep. The two radii are conjugate, not always perpendicular: so every affine map of an arc is an
/// arc again, and nothing is ever fitted.
struct SArcTo {
    SPoint m_Centre;
    SPoint m_FirstRadius;
    SPoint m_SecondRadius;
    double m_From = 0.0;   ///< radians
    double m_Sweep = 0.0;  ///< radians, from −2 pi to 2 pi; negative against the turn from first to second
    SPoint m_End;          ///< as it was drawn, but for rounding the arc's last point

    friend bool operator==(const SArcTo&, const SArcTo&) = default;
};

/// A cubic Bezier curve.
struct SCurveTo {
    SPoint m_FirstControl;
    SPoint m_SecondControl;
    SPoint m_End;

    friend bool operator==(const SCurveTo&, const SCurveTo&) = default;
};

/// One stretch of a path, from where the one before it ends.
using CStretch = std::variant<SLineTo, SArcTo, SCurveTo>;

/// A line as it was drawn, with its curves as curves; x to the right, y up.
struct SPath {
    SPoint m_Start;
    std::vector<CStretch> m_Stretches;
    bool m_bClosed = false;  ///< the last stretch ends where the first begins, or a straight one joins them

    friend bool operator==(const SPath&, const SPath&) = default;
};

[[nodiscard]] SPoint EndOf(const CStretch& stretch);

/// Of an arc, for t in radians.
[[nodiscard]] SPoint PointAt(const SArcTo& arc, double t);

/// Where the path ends: its start, if nothing follows it.
[[nodiscard]] SPoint EndOf(const SPath& path);

/// The same line walked from its end to its start.
[[nodiscard]] SPath Reversed(const SPath& path);

/// Whether all its numbers are finite.
[[nodiscard]] bool IsFinite(const SPath& path);

}  // namespace nestrix
