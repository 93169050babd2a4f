#pragma once

#include <cmath>

#include "packing/SPiece.h"

namespace nestrix {

// Points as vectors, in units of the grid but not on it.

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

/// A box of the plane, borders included.
struct SPlaneBox {
    SPoint m_Low{HUGE_VAL, HUGE_VAL};
    SPoint m_High{-HUGE_VAL, -HUGE_VAL};

    void Include(SPoint point) {
        m_Low = {std::fmin(m_Low.m_X, point.m_X), std::fmin(m_Low.m_Y, point.m_Y)};
        m_High = {std::fmax(m_High.m_X, point.m_X), std::fmax(m_High.m_Y, point.m_Y)};
    }
};

}  // namespace nestrix
