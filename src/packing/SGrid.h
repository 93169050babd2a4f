#pragma once

#include <compare>
#include <cstdint>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// A point of the grid, counted in its units.
struct SGridPoint {
    int64_t m_nX = 0;
    int64_t m_nY = 0;

    // NOLINTNEXTLINE(modernize-use-nullptr): the 0 that the compiler compares with is none of a pointer
    friend auto operator<=>(const SGridPoint&, const SGridPoint&) = default;
    friend SGridPoint operator+(SGridPoint a, SGridPoint b) { return {a.m_nX + b.m_nX, a.m_nY + b.m_nY}; }
    friend SGridPoint operator-(SGridPoint a, SGridPoint b) { return {a.m_nX - b.m_nX, a.m_nY - b.m_nY}; }
};

using CGridRing = std::vector<SGridPoint>;

/// A shape whose points lie on the grid.
struct SGridShape {
    CGridRing m_Outline;
    std::vector<CGridRing> m_Holes;
};

/// The grid that free packings are written on: its unit is a power of ten, so that every coordinate is a
/// short decimal number and stands exactly where it is written.
struct SGrid {
    int m_nExponent = 0;  ///< the unit is ten to this power; from -GRID_EXPONENT_MOST to GRID_EXPONENT_MOST

    /// The number of units nearest to a length; halves away from 0.
    [[nodiscard]] int64_t Count(double length) const;

    /// The double nearest to so many units.
    [[nodiscard]] double Length(int64_t nUnits) const;

    friend bool operator==(const SGrid&, const SGrid&) = default;
};

/// Up to this power, ten to it is a double exactly, and Length is rounded once only.
inline constexpr int GRID_EXPONENT_MOST = 22;

/// Lengths of more units than this are too long for the grid: sums of many of them, and their products in 128
/// bits, would overflow.
inline constexpr int64_t GRID_LENGTH_MOST = int64_t{1} << 46;

/// The grid for a strip: its unit is the largest power of ten that is at most a ten millionth of the width,
/// far below what anyone can cut.
/// @param width positive and finite, from 1e-14 to 1e28.
[[nodiscard]] SGrid GridFor(double width);

/// The shape on the grid, moved so that the lower left corner of its outline's bounding box is at 0, 0; each
/// point is rounded to the nearest of the grid.
[[nodiscard]] SGridShape OnGrid(const SShape& shape, const SGrid& grid);

/// The shape as it is laid: mirrored at the y axis if asked for, then turned about 0, 0 counter-clockwise,
/// each point rounded to the nearest of the grid. Multiples of 90 degrees are exact.
///
/// The one definition of what a turn does to a piece: who packs and who certifies both use it. The same on
/// every machine, since sine and cosine are our own (libraries differ in the last bit).
[[nodiscard]] SGridShape Laid(const SGridShape& shape, double degrees, bool bMirrored);

/// Sine and cosine of an angle in degrees; multiples of 90 are exact. Any finite angle.
struct SDirection {
    double m_Cosine = 1.0;
    double m_Sine = 0.0;
};
[[nodiscard]] SDirection DirectionOf(double degrees);

}  // namespace nestrix
