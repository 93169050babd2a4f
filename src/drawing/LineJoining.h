#pragma once

#include <span>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// A line made of loose ones, joined end to end.
struct SJoinedLine {
    SPath m_Path;
    std::vector<size_t> m_Sources;  ///< indices of the lines that it is made of, ascending
};

/// Joined lines, by whether their ends meet.
struct SJoinedLines {
    std::vector<SJoinedLine> m_Closed;
    std::vector<SJoinedLine> m_Open;
};

/// Joins loose lines end to end, any of them backwards where that is needed. Ends that are the same point but
/// for rounding belong together; what is left over is joined to the nearest other end within the tolerance,
/// nearest ends first. Where more than two lines meet, contours are taken from the outside to the inside, so
/// that a contour never crosses itself or another where they meet; lines that lead nowhere, and lines across
/// from one contour to itself or another, stay open.
///
/// In which order the lines come, and in which direction, does not matter. Each contour starts at the lowest
/// of its leftmost ends; an open line, at the lower of its leftmost two. Takes about n log n time.
/// @param lines finite.
[[nodiscard]] SJoinedLines JoinLines(std::span<const SPath> lines, double tolerance);

}  // namespace nestrix
