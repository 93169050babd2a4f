#include "packing/SGrid.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace nestrix {

namespace {

/// A strip's width is at least so many units.
constexpr double UNITS_IN_A_WIDTH = 1e7;

/// 10^0 to 10^22 are doubles exactly.
double PowerOfTen(int nExponent) {
    double power = 1.0;
    for (int i = 0; i < nExponent; ++i) {
        power *= 10.0;
    }
    return power;
}

CGridRing OnGrid(const CRing& ring, SPoint origin, const SGrid& grid) {
    CGridRing points;
    points.reserve(ring.size());
    for (const SPoint& point : ring) {
        points.push_back({grid.Count(point.m_X - origin.m_X), grid.Count(point.m_Y - origin.m_Y)});
    }
    return points;
}

SPoint LowerLeftOf(const CRing& ring) {
    SPoint corner = ring.empty() ? SPoint() : ring.front();
    for (const SPoint& point : ring) {
        corner = {std::min(corner.m_X, point.m_X), std::min(corner.m_Y, point.m_Y)};
    }
    return corner;
}

/// sin(x) for |x| up to π/4, by its Taylor series: the first term left out is below 1e-19.
double SmallSine(double x) {
    const double square = x * x;
    double sum = 0.0;
    for (int n = 17; n >= 3; n -= 2) {
        sum = (1.0 + sum) * -square / static_cast<double>(n * (n - 1));
    }
    return x + x * sum;
}

/// cos(x) for |x| up to π/4, likewise.
double SmallCosine(double x) {
    const double square = x * x;
    double sum = 0.0;
    for (int n = 18; n >= 2; n -= 2) {
        sum = (1.0 + sum) * -square / static_cast<double>(n * (n - 1));
    }
    return 1.0 + sum;
}

SGridPoint Laid(SGridPoint point, const SDirection& direction, bool bMirrored) {
    const double x = static_cast<double>(bMirrored ? -point.m_nX : point.m_nX);
    const double y = static_cast<double>(point.m_nY);
    return {std::llround(x * direction.m_Cosine - y * direction.m_Sine),
            std::llround(x * direction.m_Sine + y * direction.m_Cosine)};
}

CGridRing Laid(const CGridRing& ring, const SDirection& direction, bool bMirrored) {
    CGridRing laid;
    laid.reserve(ring.size());
    for (const SGridPoint point : ring) {
        laid.push_back(Laid(point, direction, bMirrored));
    }
    return laid;
}

}  // namespace

int64_t SGrid::Count(double length) const {
    const double power = PowerOfTen(std::abs(m_nExponent));
    return std::llround(m_nExponent < 0 ? length * power : length / power);
}

double SGrid::Length(int64_t nUnits) const {
    const double power = PowerOfTen(std::abs(m_nExponent));
    return m_nExponent < 0 ? static_cast<double>(nUnits) / power : static_cast<double>(nUnits) * power;
}

SGrid GridFor(double width) {
    SGrid grid{-GRID_EXPONENT_MOST};
    while (grid.m_nExponent < GRID_EXPONENT_MOST &&
           SGrid{grid.m_nExponent + 1}.Length(1) * UNITS_IN_A_WIDTH <= width) {
        ++grid.m_nExponent;
    }
    return grid;
}

SGridShape OnGrid(const SShape& shape, const SGrid& grid) {
    const SPoint origin = LowerLeftOf(shape.m_Outline);
    SGridShape rounded{OnGrid(shape.m_Outline, origin, grid), {}};
    for (const CRing& hole : shape.m_Holes) {
        rounded.m_Holes.push_back(OnGrid(hole, origin, grid));
    }
    return rounded;
}

SGridShape Laid(const SGridShape& shape, double degrees, bool bMirrored) {
    const SDirection direction = DirectionOf(degrees);
    SGridShape laid{Laid(shape.m_Outline, direction, bMirrored), {}};
    for (const CGridRing& hole : shape.m_Holes) {
        laid.m_Holes.push_back(Laid(hole, direction, bMirrored));
    }
    return laid;
}

SDirection DirectionOf(double degrees) {
    constexpr double RADIANS_IN_A_DEGREE = 0.017453292519943295;
    const double turn = std::fmod(degrees, 360.0);  // exact
    const double quarters = std::nearbyint(turn / 90.0);
    const double rest = (turn - quarters * 90.0) * RADIANS_IN_A_DEGREE;
    const double sine = SmallSine(rest);
    const double cosine = SmallCosine(rest);
    switch (static_cast<int>(quarters) & 3) {
        case 0:
            return {cosine, sine};
        case 1:
            return {-sine, cosine};
        case 2:
            return {-cosine, -sine};
        default:
            return {sine, -cosine};
    }
}

}  // namespace nestrix
