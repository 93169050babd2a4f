#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "packing/SGrid.h"

namespace nestrix {

/// The same turn from 0 to 360, excluded.
[[nodiscard]] double NormalisedTurn(double degrees);

/// The same, in millionths of a degree, as a turn that is found is written down: no library's last bit shows.
[[nodiscard]] double TurnAsWritten(double degrees);

/// The turns that a search tries for a piece: all of them steps from one.
struct STurnsToTry {
    double m_Base = 0.0;
    std::vector<double> m_Steps;  ///< from 0 to 360, excluded; none twice

    /// A turn as it is written down: from 0 to 360, excluded.
    [[nodiscard]] double DegreesOf(double step) const;
};

/// Where steps are counted from if a piece may be turned by any angle.
enum class EBase {
    DRAWING,
    LONGEST_SIDE  ///< the turn in which that lies along the floor
};

/// The turns allowed; of any angle, steps of 15 degrees from the base. Where none of those fits the strip,
/// steps from the turn in which the piece is narrowest.
/// @param piece its shape is sound.
/// @param bMirrored whether it lies with its back up.
/// @param nRoom the strip's width without its margins.
[[nodiscard]] STurnsToTry FindTurnsToTry(const SPiece& piece, bool bMirrored, const SGrid& grid,
                                         int64_t nRoom, EBase eBase);

/// The base for a set of pieces: that they were drawn beside each other for a purpose shows in sides along
/// the axes, which at least half of those that may be turned by any angle have then.
[[nodiscard]] EBase FindBase(std::span<const SPiece> pieces, const SGrid& grid);

}  // namespace nestrix
