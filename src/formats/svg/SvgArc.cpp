#include "formats/svg/SvgArc.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <numeric>

#include "packing/SGrid.h"

namespace nestrix {

namespace {

constexpr double PI = std::numbers::pi;

/// Parts may be longer than a quarter by what rounding makes of one.
constexpr double QUARTER_AND_ROUNDING = PI / 2.0 * (1.0 + 1e-9);

}  // namespace

CStretch StretchOf(SPoint start, const SSvgArc& arc, SPoint end) {
    double first = std::abs(arc.m_FirstRadius);
    double second = std::abs(arc.m_SecondRadius);
    if (first == 0.0 || second == 0.0) {
        return SLineTo{end};
    }
    const SDirection axis = DirectionOf(arc.m_Degrees);
    // From the middle of the points to the start, where the ellipse is a circle of radius 1.
    const double halfX = (start.m_X - end.m_X) / 2.0;
    const double halfY = (start.m_Y - end.m_Y) / 2.0;
    double x = (halfX * axis.m_Cosine + halfY * axis.m_Sine) / first;
    double y = (halfY * axis.m_Cosine - halfX * axis.m_Sine) / second;
    const double length = std::hypot(x, y);
    // How far the centre is from the middle, at a right angle.
    const double away = length < 1.0 ? std::sqrt((1.0 - length) * (1.0 + length)) : 0.0;
    if (length > 1.0) {
        first *= length;
        second *= length;
        x /= length;
        y /= length;
    }
    const double side = arc.m_bLarge != arc.m_bForward ? away / length : -away / length;
    const double centreX = side * y;
    const double centreY = -side * x;

    SArcTo stretch;
    stretch.m_FirstRadius = {first * axis.m_Cosine, first * axis.m_Sine};
    stretch.m_SecondRadius = {-second * axis.m_Sine, second * axis.m_Cosine};
    stretch.m_Centre = {std::midpoint(start.m_X, end.m_X) + centreX * stretch.m_FirstRadius.m_X +
                            centreY * stretch.m_SecondRadius.m_X,
                        std::midpoint(start.m_Y, end.m_Y) + centreX * stretch.m_FirstRadius.m_Y +
                            centreY * stretch.m_SecondRadius.m_Y};
    stretch.m_From = std::atan2(y - centreY, x - centreX);
    const double small = 2.0 * std::asin(std::min(length, 1.0));
    const double sweep = arc.m_bLarge ? 2.0 * PI - small : small;
    stretch.m_Sweep = arc.m_bForward ? sweep : -sweep;
    stretch.m_End = end;
    return stretch;
}

SSvgArc SvgArcOf(const SArcTo& arc) {
    const SPoint& first = arc.m_FirstRadius;
    const SPoint& second = arc.m_SecondRadius;
    // The point first · cos t + second · sin t is farthest from the centre where its distance stands still:
    // tan 2t = 2 first · second / (first² − second²).
    const double product = first.m_X * second.m_X + first.m_Y * second.m_Y;
    const double firstSquare = first.m_X * first.m_X + first.m_Y * first.m_Y;
    const double secondSquare = second.m_X * second.m_X + second.m_Y * second.m_Y;
    const double t = std::atan2(2.0 * product, firstSquare - secondSquare) / 2.0;
    const double cosine = std::cos(t);
    const double sine = std::sin(t);
    const SPoint major{first.m_X * cosine + second.m_X * sine, first.m_Y * cosine + second.m_Y * sine};
    const SPoint minor{second.m_X * cosine - first.m_X * sine, second.m_Y * cosine - first.m_Y * sine};
    const double turn = first.m_X * second.m_Y - first.m_Y * second.m_X;

    SSvgArc found;
    found.m_FirstRadius = std::hypot(major.m_X, major.m_Y);
    found.m_SecondRadius = std::hypot(minor.m_X, minor.m_Y);
    found.m_Degrees = std::atan2(major.m_Y, major.m_X) * 180.0 / PI;
    found.m_bForward = (arc.m_Sweep > 0.0) == (turn > 0.0);
    return found;
}

std::vector<SArcTo> InQuarters(const SArcTo& arc) {
    const int nParts =
        std::clamp(static_cast<int>(std::ceil(std::abs(arc.m_Sweep) / QUARTER_AND_ROUNDING)), 1, 4);
    std::vector<SArcTo> parts(static_cast<size_t>(nParts), arc);
    for (int i = 0; i < nParts; ++i) {
        SArcTo& part = parts[static_cast<size_t>(i)];
        part.m_Sweep = arc.m_Sweep / nParts;
        part.m_From = arc.m_From + i * part.m_Sweep;
        if (i + 1 < nParts) {
            part.m_End = PointAt(arc, part.m_From + part.m_Sweep);
        }
    }
    return parts;
}

}  // namespace nestrix
