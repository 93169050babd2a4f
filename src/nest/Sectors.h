#pragma once

#include <vector>

#include "packing/PointVectors.h"

namespace nestrix {

// Angles are not radians here but what grows as they do, by 4 in a full turn and by 2 in any half turn: they
// are compared only, and no library's last bit shows.

inline constexpr double FULL_TURN = 4.0;
inline constexpr double HALF_TURN = 2.0;

/// Angles that differ by less are taken for equal: drawings are rounded.
inline constexpr double SAME_ANGLE = 1e-3;

/// All directions from one on, counter-clockwise over a width.
struct SSector {
    double m_Start = 0.0;
    double m_Width = 0.0;  ///< from 0 to a full turn
};

/// The same angle from 0 to a full turn, excluded.
[[nodiscard]] double NormalisedAngle(double angle);

/// From the x axis counter-clockwise.
/// @param direction of any length but 0.
[[nodiscard]] double AngleOf(SPoint direction);

/// What is left of all directions without these sectors. Slits narrower than SAME_ANGLE are none; without any
/// sector, the whole circle is left.
[[nodiscard]] std::vector<SSector> GapsBetween(std::vector<SSector> taken);

/// Whether one sector lies within another, but for SAME_ANGLE on either side.
[[nodiscard]] bool IsWithin(const SSector& inner, const SSector& outer);

}  // namespace nestrix
