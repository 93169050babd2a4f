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

using CLineWalk = std::vector<SDirectedLine>;

struct SLineWalks {
    std::vector<CLineWalk> m_Closed;
    std::vector<CLineWalk> m_Open;
};

/// Loose lines and the nodes at which their ends meet. Good for one use.
class CLineNet {
public:
    /// @param lines finite.
    /// @param tolerance for the ends to be joined.
    CLineNet(std::span<const SPath> lines, double tolerance);

    /// First the contours, from the outside to the inside, each counter-clockwise and from the lowest of its
    /// leftmost nodes. What is left is walked through all nodes at which just two such lines meet. Each line
    /// is part of one walk.
    [[nodiscard]] SLineWalks TakeWalks();

private:
    struct SLine {
        std::array<size_t, 2> m_Nodes{};   ///< where it starts and where it ends
        std::array<size_t, 2> m_Places{};  ///< among the lines leaving these nodes
        std::vector<SPoint> m_Points;      ///< chords of it
        size_t m_nLeftmost = 0;            ///< of the points
        bool m_bInNet = true;              ///< it may be part of a contour not taken yet
        bool m_bTaken = false;
    };
    struct SNode {
        SPoint m_At;
        std::vector<SDirectedLine> m_Leaving;  ///< counter-clockwise, the first nearest to the left
        size_t m_nInNet = 0;                   ///< how many of them are in the net
    };

    void SortAround(size_t nNode);
    [[nodiscard]] double ReachOf(SDirectedLine line, SPoint from) const;
    [[nodiscard]] SPoint PointAtDistance(SDirectedLine line, SPoint from, double distance) const;

    [[nodiscard]] size_t StartOf(SDirectedLine line) const {
        return m_Lines[line.m_nLine].m_Nodes[line.m_bBack ? 1 : 0];
    }
    [[nodiscard]] size_t TargetOf(SDirectedLine line) const {
        return m_Lines[line.m_nLine].m_Nodes[line.m_bBack ? 0 : 1];
    }
    [[nodiscard]] SPoint LeftmostOf(size_t nLine) const {
        return m_Lines[nLine].m_Points[m_Lines[nLine].m_nLeftmost];
    }

    void LeaveNet(size_t nLine);
    void TakeOut(const std::vector<size_t>& lines);
    void Prune(size_t nNode);
    [[nodiscard]] SDirectedLine OuterDirection(size_t nLine) const;
    [[nodiscard]] SDirectedLine FirstInNet(size_t nNode, size_t nPlace) const;
    [[nodiscard]] CLineWalk WalkFrom(SDirectedLine first) const;
    [[nodiscard]] std::vector<CLineWalk> SimpleCycles(const CLineWalk& walk) const;
    void TakeContours(SLineWalks& walks);
    void TakeRest(SLineWalks& walks);
    [[nodiscard]] CLineWalk FromLowestLeft(CLineWalk cycle) const;
    [[nodiscard]] CLineWalk CounterClockwise(CLineWalk cycle) const;
    [[nodiscard]] CLineWalk OpenWalk(SDirectedLine first, const std::vector<size_t>& counts);

    std::vector<SLine> m_Lines;
    std::vector<SNode> m_Nodes;
};

}  // namespace nestrix
