#pragma once

#include <cmath>
#include <limits>

namespace nestrix {

/// Every margin by which the quick ways make up for rounding, each with its derivation. A margin that is too
/// wide costs a little time; one that is too narrow would cost a bit of a result.
///
/// One rounding to single precision is off by at most 2^-24 of its result, one to double precision by 2^-53.
/// The placement refuses coordinates near the ends of the range beforehand; the profile analysis notices
/// heights that are not finite by themselves.

/// How far a height in the strip, or a difference of two, may lie from that of exact arithmetic on the same
/// floats. A bound is rounded to float when it is prepared and again when the offset is added, the edge's
/// start when it is moved, the hit test's height once, and a gap is one more difference: five roundings of
/// sums of the magnitudes at most, here taken as eight.
/// @param fMagnitudes the sum of the absolute values that go into it.
[[nodiscard]] inline float HeightMargin(float fMagnitudes) {
    return fMagnitudes * 0x1p-21F;
}

/// How much longer in x an edge may seem in the strip than its stored direction is: both ends are rounded
/// when they are moved, and the direction was rounded when it was formed, three roundings of x, here taken as
/// four.
/// @param fLargestX no x in the strip is larger in absolute value.
[[nodiscard]] inline double EdgeLengthMargin(float fLargestX) {
    return static_cast<double>(fLargestX) * 0x1p-22;
}

/// How far beyond its ends an edge must be entered in cells, so that every place on it finds it. An end and
/// the beginning of the cells are rounded when they are moved, which is 2^-24 of the largest x each. Their
/// difference, its product with the cells per unit, and these themselves are rounded, which is 2^-24 of a
/// difference each, and that is at most twice the largest x. Eight times 2^-24 together, here taken as
/// sixteen.
/// @param fLargestX no x in the strip is larger in absolute value.
[[nodiscard]] inline double CellMargin(float fLargestX) {
    return static_cast<double>(fLargestX) * 0x1p-20;
}

/// How far a height on an edge, as the hit test computes it, may lie from that of the real line through the
/// edge's start along its stored direction. Each of the four operations in double precision is off by 2^-53
/// of its result. The rise gathers three such errors on the way to the sum, and the sum adds one: 2^-53 times
/// (start + 4 rises), here taken as eight of both, which leaves room for the rounding of whatever is done
/// with two heights.
[[nodiscard]] inline float LineHeightMargin(double startHeight, double largestRise) {
    const double margin = 0x1p-50 * (std::abs(startHeight) + std::abs(largestRise));
    // Up, since otherwise that of the smallest coordinates would be 0.
    return std::nextafter(static_cast<float>(margin), std::numeric_limits<float>::infinity());
}

}  // namespace nestrix
