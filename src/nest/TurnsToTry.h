#pragma once

#include <cstdint>
#include <vector>

#include "packing/SGrid.h"

namespace nestrix {

/// The same turn from 0 to 360, excluded.
[[nodiscard]] double NormalisedTurn(double degrees);

/// The turns that a search tries for a piece: all of them steps from one.
struct STurnsToTry {
    double m_Base = 0.0;
    std::vector<double> m_Steps;  ///< from 0 to 360, excluded; none twice

    /// A turn as it is written down: from 0 to 360, excluded.
    [[nodiscard]] double DegreesOf(double step) const;
};

/// The turns allowed; of any angle, steps of 15 degrees from the turn in which the longest straight side of
/// the piece lies along the floor. Where none of those fits the strip, steps from the turn in which it is
/// narrowest.
/// @param piece its shape is sound.
/// @param bMirrored whether it lies with its back up.
/// @param nRoom the strip's width without its margins.
[[nodiscard]] STurnsToTry FindTurnsToTry(const SPiece& piece, bool bMirrored, const SGrid& grid,
                                         int64_t nRoom);

}  // namespace nestrix
