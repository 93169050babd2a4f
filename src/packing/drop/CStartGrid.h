#pragma once

#include <cstdint>

#include "base/Lanes.h"
#include "packing/drop/CBlockLists.h"
#include "packing/drop/CGridAxis.h"
#include "packing/drop/SObstacles.h"
#include "packing/drop/Sweep.h"

namespace nestrix {

/// The upper profiles of what has come to rest where polygons start to fall. A polygon that hangs there holds
/// up others, and they lie across each other by the hundreds at nearly the same height. So it is no use to
/// order them by height: instead their edges and points are entered in a grid, and a drop looks at the cells
/// next to its own points and edges only. It soon finds a narrow gap, and needs to look no farther than that.
///
/// The gaps are the same bit for bit as those of FindGap.
class CStartGrid {
public:
    /// @param x, y what the cells cover; the outer ones reach to infinity.
    /// @param nPoints of all upper profiles: as there are about as many edges, it tells how much room to take
    ///        beforehand.
    void Reset(SRange x, SRange y, size_t nColumns, size_t nRows, size_t nPoints);

    void Clear();

    [[nodiscard]] bool IsEmpty() const { return m_nProfiles == 0; }

    /// Whether the profile lies where polygons start, and would not take too many cells.
    [[nodiscard]] bool Takes(const SMovedHalf& back) const;

    void Insert(const SMovedHalf& back, int nDrop);

    /// The landing with the smallest gap below `landing`, vertical sides apart, among the obstacles;
    /// `landing` if there is none.
    /// @param pAbandoned once this is true, the answer is of no use any more, and comes soon. May be null.
    [[nodiscard]] SLanding FindLanding(const SMovedHalf& front, SLanding landing, const SObstacles& obstacles,
                                       const CRelaxed<bool>* pAbandoned) const;

private:
    /// Edges of upper profiles whose boxes touch a cell. Each starts at its high end.
    struct SEdgeBlock {
        alignas(16) float m_LowX[LANES];
        float m_HighX[LANES];
        float m_Bottom[LANES];  ///< no height on the edge lies lower
        float m_Top[LANES];     ///< nor higher
        float m_StartY[LANES];
        double m_Slopes[LANES];
        int m_Drops[LANES];
        uint32_t m_nUsed = 0;
        uint32_t m_nNext = 0;

        SEdgeBlock();
    };

    /// Points of upper profiles in one cell, upside down.
    struct SPointBlock {
        alignas(16) float m_X[LANES];
        float m_Y[LANES];
        int m_Drops[LANES];
        uint32_t m_nUsed = 0;
        uint32_t m_nNext = 0;

        SPointBlock();
    };

    [[nodiscard]] size_t CellAt(size_t nColumn, size_t nRow) const {
        return nColumn * m_Rows.CountCells() + nRow;
    }

    void EnterEdge(const SMovedHalf& back, size_t nEdge, int nDrop);
    void EnterPoint(const SMovedHalf& back, size_t nPoint, int nDrop);

    [[nodiscard]] SLanding LandingBelowPoint(float fX, float fY, SLanding landing,
                                             const SObstacles& obstacles) const;
    [[nodiscard]] SLanding LandingBelowEdge(const SMovedHalf& front, size_t nEdge, SLanding landing,
                                            const SObstacles& obstacles) const;

    CGridAxis m_Columns;
    CGridAxis m_Rows;
    float m_fBottom = 0.0F;  ///< what lies lower is left to others
    size_t m_nProfiles = 0;
    CBlockLists<SEdgeBlock> m_Edges;
    CBlockLists<SPointBlock> m_Points;
};

}  // namespace nestrix
