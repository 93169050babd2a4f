#pragma once

#include <vector>

#include "certify/SBorder.h"

namespace nestrix::certify {

/// A point of an edge that lies on another border. As long as no edges cross, all such points are ends of
/// edges, and thus on the grid, or lie on edges that run over each other between two of them.
struct STouch {
    int m_nEdge = 0;
    SGridPoint m_At;

    // NOLINTNEXTLINE(modernize-use-nullptr): the 0 that the compiler compares with is none of a pointer
    friend auto operator<=>(const STouch&, const STouch&) = default;
};

/// Where borders meet.
struct SMeetings {
    bool m_bCross = false;         ///< two edges cross between their ends; nothing else is told then
    std::vector<STouch> m_First;   ///< on edges of the first border, in their order
    std::vector<STouch> m_Second;  ///< on edges of the second border, in their order
};

[[nodiscard]] SMeetings FindMeetings(const SBorder& first, const SBorder& second);

/// Where a border meets itself, but for the ends at which neighbours of a chain are joined; in m_First.
[[nodiscard]] SMeetings FindOwnMeetings(const SBorder& border);

/// Whether two edges cross between their ends.
[[nodiscard]] bool Cross(const SBorderEdge& a, const SBorderEdge& b);

/// A part of a border along which nothing is met, and one point of it that stands for all.
struct SStretch {
    SGridPoint m_Doubled;    ///< the point's coordinates times two: it is the middle between two of the grid
    SGridPoint m_Direction;  ///< of the border at the point
};

/// Stretches that stand for the whole border: each point of it that touches nothing can be reached from one
/// of them along the border without a touch.
[[nodiscard]] std::vector<SStretch> StretchesBetween(const SBorder& border,
                                                     const std::vector<STouch>& touches);

}  // namespace nestrix::certify
