#pragma once

#include <array>
#include <span>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// One direction of a line in a net.
struct SDirectedLine {
    size_t m_nLine = 0;
    bool m_bBack = false;  ///< from its end to its start

    friend bool operator==(const SDirectedLine&, const SDirectedLine&) = default;
};

/// Loose lines and the nodes at which their ends meet.
///
/// A line is in the net as long as it may be part of a contour. Those that lead nowhere, because no other
/// goes on from one of their ends, are not from the first; neither are those that do so once others have been
/// taken out. They all keep their nodes.
class CLineNet {
public:
    /// @param lines finite.
    /// @param tolerance for the ends to be joined.
    CLineNet(std::span<const SPath> lines, double tolerance);

    [[nodiscard]] size_t LineCount() const { return m_Lines.size(); }
    [[nodiscard]] size_t NodeCount() const { return m_Nodes.size(); }

    /// The node from which a line leads, and the one that it leads to.
    [[nodiscard]] size_t StartOf(SDirectedLine line) const {
        return m_Lines[line.m_nLine].m_Nodes[line.m_bBack ? 1 : 0];
    }
    [[nodiscard]] size_t TargetOf(SDirectedLine line) const {
        return m_Lines[line.m_nLine].m_Nodes[line.m_bBack ? 0 : 1];
    }

    [[nodiscard]] SPoint PlaceOf(size_t nNode) const { return m_Nodes[nNode].m_At; }

    /// All lines from a node, counter-clockwise, the first nearest to the left; also those out of the net.
    [[nodiscard]] std::span<const SDirectedLine> Leaving(size_t nNode) const {
        return m_Nodes[nNode].m_Leaving;
    }

    /// Chords of a line, from its start to its end.
    [[nodiscard]] std::span<const SPoint> PointsOf(size_t nLine) const { return m_Lines[nLine].m_Points; }
    [[nodiscard]] SPoint LeftmostOf(size_t nLine) const {
        return m_Lines[nLine].m_Points[m_Lines[nLine].m_nLeftmost];
    }

    [[nodiscard]] bool IsInNet(size_t nLine) const { return m_Lines[nLine].m_bInNet; }

    /// The lines leave the net, and others that lead nowhere without them.
    /// @param lines in the net, each once.
    void TakeOut(std::span<const size_t> lines);

    /// How the leftmost line of all that are connected is walked to have nothing of them to the right.
    [[nodiscard]] SDirectedLine OuterDirection(size_t nLine) const;

    /// Where a line arrives: the next one in the net counter-clockwise from it, which may be itself, back.
    [[nodiscard]] SDirectedLine NextAround(SDirectedLine line) const;

private:
    struct SLine {
        std::array<size_t, 2> m_Nodes{};   ///< where it starts and where it ends
        std::array<size_t, 2> m_Places{};  ///< among the lines leaving these nodes
        std::vector<SPoint> m_Points;
        size_t m_nLeftmost = 0;  ///< of the points
        bool m_bInNet = true;
    };
    struct SNode {
        SPoint m_At;
        std::vector<SDirectedLine> m_Leaving;
        size_t m_nInNet = 0;  ///< how many of them are in the net
    };

    void SortAround(size_t nNode);
    void LeaveNet(size_t nLine);
    void Prune(size_t nNode);
    [[nodiscard]] SDirectedLine FirstInNet(size_t nNode, size_t nPlace) const;

    std::vector<SLine> m_Lines;
    std::vector<SNode> m_Nodes;
};

}  // namespace nestrix
