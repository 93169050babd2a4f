#pragma once

#include "certify/Meetings.h"

namespace nestrix::certify {

/// Where a stretch lies with regard to a border.
struct SWhere {
    /// The border's winding number about the point just to the east of the stretch; just above it, if it is
    /// horizontal.
    int m_nWinding = 0;
    int m_nAlong = 0;    ///< how many of the border's edges run over the stretch in its direction
    int m_nAgainst = 0;  ///< and how many in the opposite one
};

/// The stretch must not cross the border, nor touch it but by running over it.
[[nodiscard]] SWhere Locate(const SStretch& stretch, const SBorder& border);

/// Whether the insides of two shapes share points.
[[nodiscard]] bool Overlap(const SBorder& first, const SBorder& second);

}  // namespace nestrix::certify
