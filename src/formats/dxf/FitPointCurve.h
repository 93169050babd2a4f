#pragma once

#include <optional>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// Points that a smooth curve runs through.
struct SFitPoints {
    std::vector<SPoint> m_Points;
    std::optional<SPoint> m_StartTangent;  ///< in any length
    std::optional<SPoint> m_EndTangent;
    bool m_bClosed = false;  ///< smooth at its start, too; the tangents are of no meaning then
};

/// The cubic spline through the points whose second derivative has no jumps, its parameter being the length
/// of the chords. An end without a tangent is as if a straight line followed.
/// @return nothing where fewer than two points differ.
[[nodiscard]] std::optional<SPath> FitPointPath(const SFitPoints& fit);

}  // namespace nestrix
