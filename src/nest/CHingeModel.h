#pragma once

#include <cmath>
#include <cstdint>
#include <vector>

#include "packing/PointVectors.h"

namespace nestrix {

/// What the neighbours of one piece have against its moving a little: each overlap is a hinge, weight ·
/// max(0, depth − way out · move), and their sum is convex and piecewise linear. Its least value lies where
/// two of the hinges' lines, or one and the border of the room, cross: a weighted L1 problem in the plane.
class CHingeModel {
public:
    /// The overlap with one other item: it falls in a straight line along the way out, and is 0 from there
    /// on.
    struct SHinge {
        uint32_t m_nOther;  ///< whose overlap it is
        double m_Depth;     ///< how far to go along the way out until it is gone
        SPoint m_Out;       ///< of length 1
        double m_Weight;
    };

    /// @param room that moves are to stay in.
    explicit CHingeModel(const SPlaneBox& room) : m_Room(room) {}

    /// Enters a hinge as seen after the move `from`, in the place of the one for the same neighbour.
    /// @param tolerance hinges nearer to each other than this are the same.
    /// @return whether that changed anything.
    bool Enter(const SHinge& hinge, SPoint from, double tolerance);

    /// @param limit where the value is more than this, some number from here on to the exact one is returned.
    [[nodiscard]] double ValueAt(SPoint move, double limit = HUGE_VAL) const;

    /// The move with the least value, `move` itself if no other is better. Of equal ones the shortest.
    [[nodiscard]] SPoint FindBest(SPoint move) const;

private:
    struct SLine {
        double m_Offset;
        SPoint m_Normal;
    };
    [[nodiscard]] std::vector<SLine>& CollectLines() const;

    SPlaneBox m_Room;
    std::vector<SHinge> m_Hinges;
    mutable std::vector<SLine> m_Lines;
};

}  // namespace nestrix
