#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// A B-spline, with weights a NURBS curve.
struct SSpline {
    int m_nDegree = 3;
    std::vector<double> m_Knots;
    std::vector<SPoint> m_Controls;
    std::vector<double> m_Weights;  ///< one for each control point; none: all the same
};

/// Splines of a higher degree are not read: nobody draws them, and they take long.
inline constexpr int HIGHEST_DEGREE = 15;

/// Why there is no such curve, in words for a user; empty if there is.
[[nodiscard]] std::string FaultOf(const SSpline& spline);

/// The curve between the first and the last knot at which it is defined. Straight, quadratic and cubic
/// splines become lines and Bezier curves exactly, and so do the conics among those with weights. Others are
/// followed to SPLINE_TOLERANCE times their extent.
/// @param spline without fault.
[[nodiscard]] SPath PathOf(const SSpline& spline);

inline constexpr double SPLINE_TOLERANCE = 1e-6;

}  // namespace nestrix
