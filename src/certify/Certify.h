#pragma once

#include <cstddef>
#include <span>
#include <string>
#include <vector>

#include "packing/SFreePacking.h"
#include "packing/SGrid.h"
#include "packing/SPacking.h"

namespace nestrix {

/// One thing that keeps a packing from being valid.
struct SViolation {
    enum class EKind {
        UNKNOWN_PIECE,  ///< a placement names a piece that the set has not
        QUANTITY,       ///< a piece is placed too often or not often enough
        TURN,           ///< a turn or a mirroring that the piece does not allow
        SHAPE,    ///< a shape whose borders cross, that has no inside, or that is too large to be calculated
                  ///< with
        STRIP,    ///< a piece reaches out of the strip or into its margin; without a placement: the strip or
                  ///< the grid is none that can be calculated with, and no place was examined
        OVERLAP,  ///< the insides of two pieces share points
        SPACING,  ///< two pieces are nearer than the spacing, less one unit of the grid
        HEIGHT    ///< the height is not that of the highest point
    };

    EKind m_eKind = EKind::OVERLAP;
    int m_nFirst = -1;   ///< index of a placement; of a piece for QUANTITY; −1 for none
    int m_nSecond = -1;  ///< index of the later placement of a pair

    /// In the units of the strip: how far a piece reaches out; how deep one reaches into the other (the
    /// greatest distance from the other's border among certain points of one that are inside the other); how
    /// much of the spacing is missing; how much too great the height is (negative: too small). For QUANTITY
    /// the copies missing (negative: too many). Rounded: it tells how much is wrong, not whether.
    double m_Amount = 0.0;
};

/// So many pairs are named at most; more are not looked for.
inline constexpr size_t PAIRS_NAMED_MOST = 10000;

/// In words for a user; placements and pieces are counted from 1.
[[nodiscard]] std::string InWords(const SViolation& violation);

/// What an exact examination of a packing found.
struct SCertificate {
    std::vector<SViolation> m_Violations;

    [[nodiscard]] bool IsValid() const { return m_Violations.empty(); }
};

/// Examines a packing in exact arithmetic, without any tolerance but the one of SPACING: touching is allowed,
/// an overlap of one unit of the grid is not. Shares nothing with any search but the values.
///
/// Any values are examined, however wild. A shape is judged as it was drawn, on the grid. What is not sound,
/// or too large for the grid, is reported as a SHAPE and compared with no other; the height is then not
/// judged.
[[nodiscard]] SCertificate Certify(std::span<const SPiece> pieces, const SFreePacking& packing);

/// Examines a dropped packing: its coordinates in single precision are taken as they are, so that pieces
/// which were meant to touch may overlap by the last digit. The strip's walls, the floor and overlaps are
/// looked at.
///
/// All coordinates are brought to one unit, a power of two, by which they are whole numbers of up to 60
/// digits: no rounding up to heights of 32,000 as long as no coordinate is between 0 and 3e-7. A piece with
/// coordinates both finer and greater than most of the packing, so that it does not fit, is reported as a
/// SHAPE.
[[nodiscard]] SCertificate Certify(std::span<const CPolygon> pieces, const SPacking& packing);

/// Whether the shape has an inside, no edges of it cross, and no point is inside it twice or inside out: its
/// holes lie within its outline and beside each other. It may touch itself.
[[nodiscard]] bool IsSound(const SGridShape& shape);

/// Whether the insides of two sound shapes share points; touching is allowed.
[[nodiscard]] bool DoInsidesOverlap(const SGridShape& first, const SGridShape& second);

}  // namespace nestrix
