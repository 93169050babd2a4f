#include "packing/drop/CStartGrid.h"

#include <algorithm>
#include <bit>
#include <cmath>

#include "packing/drop/Gaps.h"

namespace nestrix {

namespace {

/// An edge at its place in the strip.
struct SPlacedEdge {
    float m_fLowX;
    float m_fHighX;
    float m_fStartX;
    float m_fStartY;
    double m_Slope;

    /// As the hit test computes it; monotonic in x, roundings and all.
    [[nodiscard]] double HeightAt(float x) const {
        return static_cast<double>(m_fStartY) +
               m_Slope * (static_cast<double>(x) - static_cast<double>(m_fStartX));
    }

    [[nodiscard]] SRange X() const { return {m_fLowX, m_fHighX}; }
    [[nodiscard]] SRange Heights() const {
        const auto fAtLow = static_cast<float>(HeightAt(m_fLowX));
        const auto fAtHigh = static_cast<float>(HeightAt(m_fHighX));
        return {std::min(fAtLow, fAtHigh), std::max(fAtLow, fAtHigh)};
    }
};

/// @param bBack whether the half is an upper one: its edges start at their high ends, and a lower one's are
///        kept upside down.
SPlacedEdge EdgeOf(const SMovedHalf& half, size_t nEdge, bool bBack) {
    const SProfileEdges& edges = half.m_Half.m_Edges;
    const float fLow = edges.m_LowX[nEdge] + half.m_fX;
    const float fHigh = edges.m_HighX[nEdge] + half.m_fX;
    return {fLow, fHigh, bBack ? fHigh : fLow, edges.m_StartY[nEdge] + (bBack ? half.m_fY : -half.m_fY),
            edges.m_Slopes[nEdge]};
}

FloatLanes Fill(float fValue) {
    return FloatLanes{} + fValue;
}

/// The smallest of four gaps to obstacles, if it is below that of `landing`.
SLanding Narrow(SLanding landing, FloatLanes gaps, const int* pDrops, const SObstacles& obstacles) {
    for (unsigned int nBits = BitsOf(gaps < landing.m_fFall); nBits != 0; nBits &= nBits - 1) {
        const int nLane = std::countr_zero(nBits);
        if (gaps[nLane] < landing.m_fFall && obstacles.Contain(pDrops[nLane])) {
            landing = {gaps[nLane], pDrops[nLane]};
        }
    }
    return landing;
}

/// Nothing that lies lower is met by a fall shorter than fFall from y.
float LowestMet(float fY, float fFall) {
    return fY - fFall - HeightMargin(std::abs(fY) + std::abs(fFall));
}

}  // namespace

CStartGrid::SEdgeBlock::SEdgeBlock() {
    for (float* const pLanes : {m_LowX, m_HighX, m_Bottom, m_Top, m_StartY}) {
        std::fill_n(pLanes, LANES, LANE_FILLER);
    }
    std::fill_n(m_Slopes, LANES, 0.0);
}

CStartGrid::SPointBlock::SPointBlock() {
    std::fill_n(m_X, LANES, LANE_FILLER);
    std::fill_n(m_Y, LANES, LANE_FILLER);
}

void CStartGrid::Reset(SRange x, SRange y, size_t nColumns, size_t nRows, size_t nPoints) {
    m_Columns = {x, nColumns};
    m_Rows = {y, nRows};
    m_fBottom = y.m_fLow;
    const size_t nCells = m_Columns.CountCells() * m_Rows.CountCells();
    constexpr size_t MOST_BLOCKS = 1 << 16;
    m_Edges.Reset(nCells, std::min(8 * nPoints, MOST_BLOCKS));
    m_Points.Reset(nCells, std::min(nPoints, MOST_BLOCKS));
    m_nProfiles = 0;
}

void CStartGrid::Clear() {
    m_Edges.Clear();
    m_Points.Clear();
    m_nProfiles = 0;
}

bool CStartGrid::Takes(const SMovedHalf& back) const {
    if (back.m_Y.m_fHigh < m_fBottom) {
        return false;
    }
    // Long edges in great number would take room by the megabyte. This is what they take at the most.
    constexpr size_t MOST_ENTRIES = 2048;
    const SProfileEdges& edges = back.m_Half.m_Edges;
    if (edges.m_nCount == 0) {
        return true;
    }
    const CGridAxis::SCells columns =
        m_Columns.CellsOf({edges.m_LowX.front() + back.m_fX, edges.m_fRight + back.m_fX});
    const CGridAxis::SCells rows = m_Rows.CellsOf(back.m_Y);
    return edges.m_nCount * columns.Count() * rows.Count() <= MOST_ENTRIES;
}

void CStartGrid::Insert(const SMovedHalf& back, int nDrop) {
    for (size_t i = 0; i < back.m_Half.m_Edges.m_nCount; ++i) {
        EnterEdge(back, i, nDrop);
    }
    for (size_t i = 0; i < back.m_Half.m_Points.m_nCount; ++i) {
        EnterPoint(back, i, nDrop);
    }
    ++m_nProfiles;
}

void CStartGrid::EnterEdge(const SMovedHalf& back, size_t nEdge, int nDrop) {
    const SPlacedEdge edge = EdgeOf(back, nEdge, true);
    const SRange heights = edge.Heights();
    const CGridAxis::SCells columns = m_Columns.CellsOf(edge.X());
    const CGridAxis::SCells rows = m_Rows.CellsOf(heights);
    for (size_t nColumn = columns.m_nFirst; nColumn <= columns.m_nLast; ++nColumn) {
        for (size_t nRow = rows.m_nFirst; nRow <= rows.m_nLast; ++nRow) {
            SEdgeBlock& block = m_Edges.BlockWithRoom(CellAt(nColumn, nRow), LANES);
            const size_t nPlace = block.m_nUsed++;
            block.m_Bottom[nPlace] = heights.m_fLow;
            block.m_Top[nPlace] = heights.m_fHigh;
            block.m_LowX[nPlace] = edge.m_fLowX;
            block.m_HighX[nPlace] = edge.m_fHighX;
            block.m_StartY[nPlace] = edge.m_fStartY;
            block.m_Slopes[nPlace] = edge.m_Slope;
            block.m_Drops[nPlace] = nDrop;
        }
    }
}

void CStartGrid::EnterPoint(const SMovedHalf& back, size_t nPoint, int nDrop) {
    const float fX = back.m_Half.m_Points.m_X[nPoint] + back.m_fX;
    const float fY = back.m_Half.m_Points.m_Y[nPoint] - back.m_fY;
    SPointBlock& block = m_Points.BlockWithRoom(CellAt(m_Columns.CellOf(fX), m_Rows.CellOf(-fY)), LANES);
    const size_t nPlace = block.m_nUsed++;
    block.m_X[nPlace] = fX;
    block.m_Y[nPlace] = fY;
    block.m_Drops[nPlace] = nDrop;
}

SLanding CStartGrid::FindLanding(const SMovedHalf& front, SLanding landing, const SObstacles& obstacles,
                                 const CRelaxed<bool>* pAbandoned) const {
    const SHalfProfile& half = front.m_Half;
    for (size_t i = 0; i < half.m_Points.m_nCount && !IsMade(pAbandoned); ++i) {
        landing = LandingBelowPoint(half.m_Points.m_X[i] + front.m_fX, half.m_Points.m_Y[i] + front.m_fY,
                                    landing, obstacles);
    }
    for (size_t i = 0; i < half.m_Edges.m_nCount && !IsMade(pAbandoned); ++i) {
        landing = LandingBelowEdge(front, i, landing, obstacles);
    }
    return landing;
}

SLanding CStartGrid::LandingBelowPoint(float fX, float fY, SLanding landing,
                                       const SObstacles& obstacles) const {
    const size_t nColumn = m_Columns.CellOf(fX);
    float fLowest = LowestMet(fY, landing.m_fFall);
    for (size_t nRow = m_Rows.CellOf(fY);; --nRow) {
        m_Edges.Visit(CellAt(nColumn, nRow), [&](const SEdgeBlock& block) {
            const FloatLanes low = LoadLanes(block.m_LowX);
            const FloatLanes high = LoadLanes(block.m_HighX);
            if (BitsOf((low <= fX) & (high >= fX) & (LoadLanes(block.m_Bottom) <= fY) &
                       (LoadLanes(block.m_Top) >= fLowest)) == 0) {
                return;
            }
            const SEdgeLanes edges{low, high, high, LoadLanes(block.m_StartY), block.m_Slopes};
            landing = Narrow(landing, GapsBelow(Fill(fX), Fill(fY), edges), block.m_Drops, obstacles);
            fLowest = LowestMet(fY, landing.m_fFall);
        });
        if (nRow <= m_Rows.CellOf(fLowest)) {
            return landing;
        }
    }
}

SLanding CStartGrid::LandingBelowEdge(const SMovedHalf& front, size_t nEdge, SLanding landing,
                                      const SObstacles& obstacles) const {
    const SPlacedEdge edge = EdgeOf(front, nEdge, false);
    // Upside down: the points rise to the edge.
    const SRange heights = edge.Heights();
    const float fHighest = -heights.m_fLow;
    float fLowest = LowestMet(-heights.m_fHigh, landing.m_fFall);
    const size_t nHighest = m_Rows.CellOf(fHighest);
    size_t nLowest = m_Rows.CellOf(fLowest);
    const CGridAxis::SCells columns = m_Columns.CellsOf(edge.X());
    for (size_t nColumn = columns.m_nFirst; nColumn <= columns.m_nLast; ++nColumn) {
        for (size_t nRow = nHighest + 1; nRow-- > nLowest;) {
            m_Points.Visit(CellAt(nColumn, nRow), [&](const SPointBlock& block) {
                const FloatLanes x = LoadLanes(block.m_X);
                const FloatLanes y = LoadLanes(block.m_Y);
                if (BitsOf((x >= edge.m_fLowX) & (x <= edge.m_fHighX) & (y >= -fHighest) & (y <= -fLowest)) ==
                    0) {
                    return;
                }
                const double slopes[LANES] = {edge.m_Slope, edge.m_Slope, edge.m_Slope, edge.m_Slope};
                const SEdgeLanes edges{Fill(edge.m_fLowX), Fill(edge.m_fHighX), Fill(edge.m_fStartX),
                                       Fill(edge.m_fStartY), slopes};
                landing = Narrow(landing, GapsBelow(x, y, edges), block.m_Drops, obstacles);
                fLowest = LowestMet(-heights.m_fHigh, landing.m_fFall);
                nLowest = m_Rows.CellOf(fLowest);
            });
        }
    }
    return landing;
}

}  // namespace nestrix
