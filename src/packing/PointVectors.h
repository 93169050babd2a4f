#pragma once

#include <algorithm>
#include <cmath>
#include <tuple>

#include "packing/SGrid.h"

namespace nestrix {

// Points as vectors: lengths, or units of the grid but not on it.

[[nodiscard]] inline SPoint operator+(SPoint a, SPoint b) {
    return {a.m_X + b.m_X, a.m_Y + b.m_Y};
}
[[nodiscard]] inline SPoint operator-(SPoint a, SPoint b) {
    return {a.m_X - b.m_X, a.m_Y - b.m_Y};
}
[[nodiscard]] inline SPoint operator-(SPoint a) {
    return {-a.m_X, -a.m_Y};
}
[[nodiscard]] inline SPoint operator*(SPoint a, double factor) {
    return {a.m_X * factor, a.m_Y * factor};
}
[[nodiscard]] inline double Dot(SPoint a, SPoint b) {
    return a.m_X * b.m_X + a.m_Y * b.m_Y;
}
/// Positive where b is to the left of a.
[[nodiscard]] inline double Cross(SPoint a, SPoint b) {
    return a.m_X * b.m_Y - a.m_Y * b.m_X;
}
[[nodiscard]] inline double Length(SPoint a) {
    return std::sqrt(Dot(a, a));
}
/// From a point to the nearest one of a straight line between two others, which may be the same.
[[nodiscard]] inline double DistanceOf(SPoint point, SPoint from, SPoint to) {
    const SPoint along = to - from;
    const double square = Dot(along, along);
    const double share = square > 0.0 ? std::clamp(Dot(point - from, along) / square, 0.0, 1.0) : 0.0;
    return Length(point - from - along * share);
}
/// Whether a is farther to the left than b, or as far and lower.
[[nodiscard]] inline bool IsBefore(SPoint a, SPoint b) {
    return std::tie(a.m_X, a.m_Y) < std::tie(b.m_X, b.m_Y);
}

[[nodiscard]] inline SPoint AsPoint(SGridPoint point) {
    return {static_cast<double>(point.m_nX), static_cast<double>(point.m_nY)};
}

/// A box of the plane, borders included.
struct SPlaneBox {
    SPoint m_Low{HUGE_VAL, HUGE_VAL};
    SPoint m_High{-HUGE_VAL, -HUGE_VAL};

    void Include(SPoint point) {
        m_Low = {std::fmin(m_Low.m_X, point.m_X), std::fmin(m_Low.m_Y, point.m_Y)};
        m_High = {std::fmax(m_High.m_X, point.m_X), std::fmax(m_High.m_Y, point.m_Y)};
    }
    [[nodiscard]] bool IsEmpty() const { return m_High.m_X < m_Low.m_X || m_High.m_Y < m_Low.m_Y; }
    [[nodiscard]] bool Contains(SPoint point) const {
        return point.m_X >= m_Low.m_X && point.m_X <= m_High.m_X && point.m_Y >= m_Low.m_Y &&
               point.m_Y <= m_High.m_Y;
    }
    /// The point of the box that is nearest to another. Where low is above high, a point at low.
    [[nodiscard]] SPoint Nearest(SPoint point) const {
        return {std::max(std::min(point.m_X, m_High.m_X), m_Low.m_X),
                std::max(std::min(point.m_Y, m_High.m_Y), m_Low.m_Y)};
    }
};

/// The box moved.
[[nodiscard]] inline SPlaneBox BoxAt(const SPlaneBox& box, SPoint by) {
    return {box.m_Low + by, box.m_High + by};
}

/// The larger of the distances along the axes; negative where the boxes overlap.
[[nodiscard]] inline double GapOf(const SPlaneBox& a, const SPlaneBox& b) {
    return std::max({a.m_Low.m_X - b.m_High.m_X, b.m_Low.m_X - a.m_High.m_X, a.m_Low.m_Y - b.m_High.m_Y,
                     b.m_Low.m_Y - a.m_High.m_Y});
}

}  // namespace nestrix
