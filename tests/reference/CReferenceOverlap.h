#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "packing/SGrid.h"

namespace nestrix::reference {

/// Coordinates of the shapes of a CReferenceOverlap, and the denominators of places, at most: what is
/// multiplied stays within the grid.
inline constexpr int64_t OVERLAP_COORDINATE_MOST = 40;
inline constexpr int64_t OVERLAP_DENOMINATOR_MOST = 1'000'000;

/// A place of one shape beside another, exactly: so many parts of the unit.
struct SExactPlace {
    int64_t m_nX = 0;
    int64_t m_nY = 0;
    int64_t m_nDenominator = 1;  ///< positive
};

/// How deep one shape reaches into another that stays, plainly: the distance to the nearest place at which
/// the insides share nothing.
///
/// Wherever the moving shape is about to enter the other, a corner of one lies on a side of the other. So
/// such places lie on lines, one for each corner with each side, and the nearest of them is the foot of a
/// perpendicular on a line, or a place where two lines cross or one ends. All these are tried, nearest first,
/// in whole numbers. Neither convex parts nor sums of shapes are used.
class CReferenceOverlap {
public:
    /// @param stays, moves sound shapes.
    CReferenceOverlap(SGridShape stays, SGridShape moves);

    /// The length of the shortest move from the place after which nothing overlaps; 0 where nothing does.
    [[nodiscard]] double DepthAt(const SExactPlace& at);

    /// Whether the insides overlap at the place.
    [[nodiscard]] bool OverlapsAt(const SExactPlace& at) const;

private:
    /// Where a corner slides along a side.
    struct SLine {
        SGridPoint m_From;
        SGridPoint m_To;
    };
    /// A place that may be asked for several times.
    struct SMeeting {
        SExactPlace m_At;
        std::optional<bool> m_Overlaps;
    };

    void AppendMeeting(const SLine& a, const SLine& b);
    [[nodiscard]] double NearestFoot(const SExactPlace& at, double nearerThan) const;

    SGridShape m_Stays;
    SGridShape m_Moves;
    std::vector<SLine> m_Lines;
    std::vector<SMeeting> m_Meetings;
};

}  // namespace nestrix::reference
