#include "formats/dxf/EllipseAxes.h"

#include <cmath>
#include <numbers>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// A few maps lose far less than this share of a radius, and nobody can cut it.
constexpr double ROUNDING = 1e-9;

SPoint LeftOf(SPoint direction) {
    return {-direction.m_Y, direction.m_X};
}

}  // namespace

double SeenSweep(const SArcTo& arc) {
    return Cross(arc.m_FirstRadius, arc.m_SecondRadius) < 0.0 ? -arc.m_Sweep : arc.m_Sweep;
}

bool IsCircular(const SArcTo& arc) {
    const double first = Length(arc.m_FirstRadius);
    const double second = Length(arc.m_SecondRadius);
    return first > 0.0 && std::abs(first - second) <= ROUNDING * first &&
           std::abs(Dot(arc.m_FirstRadius, arc.m_SecondRadius)) <= ROUNDING * first * second;
}

bool AreOfOneEllipse(const SArcTo& a, const SArcTo& b) {
    const SEllipseArc first = WithAxes(a);
    const SEllipseArc second = WithAxes(b);
    const double size = Length(first.m_MajorAxis);
    const double tolerance = ROUNDING * (size + Length(first.m_Centre));
    const auto isNear = [tolerance](SPoint p, SPoint q) { return Length(p - q) <= tolerance; };
    const bool bSameAxis = isNear(first.m_MajorAxis, second.m_MajorAxis) ||
                           isNear(first.m_MajorAxis, -second.m_MajorAxis) || (IsCircular(a) && IsCircular(b));
    return isNear(first.m_Centre, second.m_Centre) && bSameAxis &&
           std::abs(size - Length(second.m_MajorAxis)) <= tolerance &&
           std::abs(first.m_Ratio - second.m_Ratio) <= ROUNDING && SeenSweep(a) * SeenSweep(b) > 0.0;
}

/// The axes are the radii at the parameter where the distance from the centre is largest, and a quarter
/// later.
SEllipseArc WithAxes(const SArcTo& arc) {
    const SPoint& first = arc.m_FirstRadius;
    const SPoint& second = arc.m_SecondRadius;
    const double parameter =
        IsCircular(arc) ? 0.0
                        : std::atan2(2.0 * Dot(first, second), Dot(first, first) - Dot(second, second)) / 2.0;
    const SPoint major = first * std::cos(parameter) + second * std::sin(parameter);
    const SPoint minor = second * std::cos(parameter) - first * std::sin(parameter);
    const double along = Length(major);
    SEllipseArc ellipse{arc.m_Centre, major, along > 0.0 ? Length(minor) / along : 1.0};
    const double turn = Dot(minor, LeftOf(major)) < 0.0 ? -1.0 : 1.0;
    const double from = turn * (arc.m_From - parameter);
    const double to = from + turn * arc.m_Sweep;
    ellipse.m_From = std::fmod(std::fmin(from, to), 2.0 * std::numbers::pi);
    ellipse.m_To = ellipse.m_From + std::abs(arc.m_Sweep);
    return ellipse;
}

}  // namespace nestrix
