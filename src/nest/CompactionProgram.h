#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "nest/Vectors.h"

namespace nestrix {

/// How an item may move in a compaction, and what it costs.
struct SMovable {
    SPlaneBox m_Room;    ///< of its move
    double m_Top = 0.0;  ///< of the item before the move
};

/// Two items that are to stay on their sides of a line. Those of one pair follow each other: an overlap of
/// the two is counted once, however many lines it is on the wrong side of.
struct SKeepApart {
    size_t m_nPair = 0;  ///< items' numbers would not do: all that do not move have the same
    size_t m_nFirst = 0;
    size_t m_nSecond = 0;
    SPoint m_Normal;
    double m_Least = 0.0;  ///< of Dot(normal, move of the first less that of the second)
    double m_Lost = 0.0;   ///< what of it is there for rounding
};

/// Items that do not move have this number.
inline constexpr size_t NOT_MOVABLE = static_cast<size_t>(-1);

struct SCompaction {
    std::vector<SPoint> m_Moves;  ///< of each movable item
    double m_Overlap = 0.0;       ///< what could not be taken apart, in units: the sum over all pairs
};

/// Solves the linear program of a compaction: moves within the rooms, overlaps taken apart as far as that
/// goes, then the least height of the strip, then all as low as it can be.
/// @param fixedTop the highest top of the items that do not move.
/// @param reach a length that moves are compared with: the program's numbers are near 1 then.
/// @return nothing where there is no solution: a room is empty.
[[nodiscard]] std::optional<SCompaction> SolveCompaction(std::span<const SMovable> items,
                                                         std::span<const SKeepApart> rows, double fixedTop,
                                                         double reach);

}  // namespace nestrix
