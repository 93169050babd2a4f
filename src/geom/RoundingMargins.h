#pragma once

#include <cmath>
#include <limits>

namespace nestrix {

/// Every margin by which the quick ways make up for rounding, each with its derivation. A margin that is too
/// wide costs a little time; one that is too narrow would cost a bit of a result.
///
/// One rounding to single precision is off by at most 2^-24 of its result, one to double precision by 2^-53.
/// All results here stay far from the ends of the range, or are refused beforehand.

/// How far a height in the strip, or a difference of two, may lie from that of exact arithmetic on the same
/// floats. A local y and its offset are added with one rounding, the hit test rounds its height once, the gap
/// is one more difference and its place another: four roundings of sums of the magnitudes at most, here taken
/// as eight.
/// @param fMagnitudes the sum of the absolute values that go into it.
[[nodiscard]] inline float HeightMargin(float fMagnitudes) {
    return fMagnitudes * 0x1p-21F;
}

/// How much longer in x an edge may seem in the strip than it is: both ends are rounded, and the place on it
/// where a height is wanted, three roundings of x, here taken as four.
/// @param fLargestX no x in the strip is larger in absolute value.
[[nodiscard]] inline double EdgeLengthMargin(float fLargestX) {
    return static_cast<double>(fLargestX) * 0x1p-22;
}

/// How far from its cell a place may be looked up. The place and the cells' beginning are rounded when they
/// are moved, their difference is rounded, and so is its product with the cells per unit, which is itself
/// rounded: each moves the place by 2^-24 of twice the largest x at most, eight roundings together, here
/// taken as sixteen.
/// @param fLargestX no x in the strip is larger in absolute value.
[[nodiscard]] inline double CellMargin(float fLargestX) {
    return static_cast<double>(fLargestX) * 0x1p-20;
}

/// How far a height on an edge, as the hit test computes it, may lie from that of the real line between the
/// edge's ends. Each of the four operations in double precision is off by 2^-53 of its result. The rise
/// gathers three such errors on the way to the sum, and the sum adds one: 2^-53 times (start + 4 rises), here
/// taken as eight of both, which leaves room for the rounding of whatever is done with two heights.
[[nodiscard]] inline float LineHeightMargin(double startHeight, double largestRise) {
    const double margin = 0x1p-50 * (std::abs(startHeight) + std::abs(largestRise));
    // Up, since otherwise that of the smallest coordinates would be 0.
    return std::nextafter(static_cast<float>(margin), std::numeric_limits<float>::infinity());
}

}  // namespace nestrix
