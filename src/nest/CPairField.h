#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "nest/ForbiddenRegion.h"
#include "nest/LeastDepths.h"

namespace nestrix {

/// A part of the border between what is forbidden, on its left, and what is allowed.
struct SBorderEdge {
    SPoint m_From;
    SPoint m_Along;  ///< of length 1
    double m_Length = 0.0;
};

/// How deep two pieces overlap, and which way they come apart most quickly.
struct SDepth {
    double m_Depth = 0.0;  ///< the length of the shortest move that separates them; 0 where nothing overlaps
    SPoint m_Out;          ///< its direction, of length 1; of no meaning for depth 0
};

/// For one piece that may move beside another that stays: the exact depth of their overlap at any place. That
/// is the distance from the border of the no-fit polygon, which is cut into cells, each with a list of the
/// border edges that can be nearest to a point in it.
class CPairField {
public:
    /// @param stays, moves the convex parts of both pieces.
    /// @param outward how far apart the pieces are to be kept; negative: how far they may overlap unnoticed.
    CPairField(std::span<const CConvexPart> stays, std::span<const CConvexPart> moves, double outward);

    /// @param at the place of the one less that of the other.
    /// @param factor what the depth is multiplied with.
    /// @param enough where the product is at least this, some number from here on to the exact one is
    /// returned.
    [[nodiscard]] double DepthAt(SPoint at, double factor = 1.0, double enough = HUGE_VAL) const {
        const size_t nCell = CellAt(at);
        const double least = factor * static_cast<double>(m_Least[nCell]);
        const SCell& cell = m_Cells[nCell];
        if (cell.m_nEdges == 0 || least >= enough) {
            return least;
        }
        const SNearest nearest = FindNearest(at, EdgesOf(cell));
        return nearest.m_Side > 0.0 ? factor * std::sqrt(nearest.m_Square) : 0.0;
    }
    [[nodiscard]] SDepth FindWayOut(SPoint at) const;

    /// What the depths of many places are at least, for a version turned and put somewhere.
    /// @param direction, origin places are turned by and counted from.
    /// @param factor what the depths are multiplied with.
    [[nodiscard]] SLeastDepths LeastDepths(SDirection direction, SPoint origin, double factor) const;

    [[nodiscard]] const SPlaneBox& Box() const { return m_Box; }
    [[nodiscard]] const std::vector<SBorderEdge>& Border() const { return m_Edges; }

private:
    struct SNearest {
        const SBorderEdge* m_pEdge = nullptr;
        double m_Square = 0.0;  ///< of the distance
        double m_Side = 0.0;    ///< distance from the edge's line, positive on the forbidden side
    };

    class CCellFiller;

    struct SCell {
        uint32_t m_nEdges;  ///< that can be nearest; 0 where nothing is forbidden
        uint32_t m_nFirst;  ///< of them in m_Lists
    };

    /// In both tables, cells are surrounded by others in which nothing is forbidden.
    [[nodiscard]] size_t CellAt(SPoint at) const {
        const SPoint from = (at - m_Box.m_Low) * m_CellsPerUnit;
        if (!(from.m_X >= 0.0 && from.m_Y >= 0.0 && from.m_X < m_nColumns && from.m_Y < m_nRows)) {
            return 0;
        }
        return IndexOf(static_cast<int>(from.m_X), static_cast<int>(from.m_Y));
    }
    [[nodiscard]] size_t IndexOf(int nColumn, int nRow) const {
        return static_cast<size_t>((nRow + 1) * (m_nColumns + 2) + nColumn + 1);
    }
    [[nodiscard]] std::span<const uint16_t> EdgesOf(const SCell& cell) const {
        return {m_Lists.data() + cell.m_nFirst, cell.m_nEdges};
    }
    [[nodiscard]] SNearest FindNearest(SPoint at, std::span<const uint16_t> edges) const;
    void CutIntoCells();

    SPlaneBox m_Box;
    std::vector<SBorderEdge> m_Edges;
    double m_CellsPerUnit = 0.0;
    int m_nColumns = 0;
    int m_nRows = 0;
    std::vector<float> m_Least;  ///< of each cell: the depth is nowhere less; row by row from below
    std::vector<SCell> m_Cells;
    std::vector<uint16_t> m_Lists;  ///< indices of edges
};

}  // namespace nestrix
