#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "packing/SFreePacking.h"
#include "packing/SPacking.h"

namespace nestrix {

/// One thing that keeps a packing from being valid.
struct SViolation {
    enum class EKind {
        UNKNOWN_PIECE,  ///< a placement names a piece that the set has not
        QUANTITY,       ///< a piece is placed too often or not often enough
        TURN,           ///< a turn or a mirroring that the piece does not allow
        SHAPE,    ///< an outline that crosses itself, has no inside, or is too large to be calculated with
        STRIP,    ///< a piece reaches out of the strip or into its margin
        OVERLAP,  ///< the insides of two pieces share points
        SPACING,  ///< two pieces are nearer than the spacing, less one unit of the grid
        HEIGHT    ///< the height is not that of the highest point
    };

    EKind m_eKind = EKind::OVERLAP;
    int m_nFirst = -1;   ///< index of a placement; of a piece for QUANTITY; −1 for none
    int m_nSecond = -1;  ///< index of the later placement of a pair
    double m_Amount =
        0;  ///< how far a piece reaches out, or into the other, or how much distance is missing;
            ///< in the units of the strip. The copies missing (negative: too many) for QUANTITY
};

/// In words for a user; placements are counted from 1.
[[nodiscard]] std::string InWords(const SViolation& violation);

/// What an exact examination of a packing found.
struct SCertificate {
    std::vector<SViolation> m_Violations;

    [[nodiscard]] bool IsValid() const { return m_Violations.empty(); }
};

/// Examines a packing in exact arithmetic, without any tolerance but the one of SPACING: touching is allowed,
/// an overlap of one unit of the grid is not. Shares nothing with any search but the values.
[[nodiscard]] SCertificate Certify(std::span<const SPiece> pieces, const SFreePacking& packing);

/// Examines a dropped packing: its coordinates in single precision are taken as they are. The strip's walls,
/// the floor and overlaps are looked at.
[[nodiscard]] SCertificate Certify(std::span<const CPolygon> pieces, const SPacking& packing);

}  // namespace nestrix
