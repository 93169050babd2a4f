#include "packing/drop/ProfileCells.h"

#include <algorithm>
#include <cmath>

#include "geom/RoundingMargins.h"

namespace nestrix {

namespace {

/// Where the cells of a half profile lie, local.
class CCellGrid {
public:
    /// @param margin how far a point may seem to lie from where it does, by rounding, anywhere in the strip.
    CCellGrid(SRange x, size_t nCells, float fCellsPerUnit, double margin)
        : m_Left(x.m_fLow), m_nLast(nCells - 1), m_PerUnit(fCellsPerUnit), m_Margin(margin) {}

    /// Calls `visit(cell, low, high)` for every cell that an edge may be found in, with the part of the
    /// edge's x range there, both widened by the margin.
    template <class TVisit>
    void VisitCells(const SEdge& edge, const TVisit& visit) const {
        const double low = static_cast<double>(edge.LowX()) - m_Margin;
        const double high = static_cast<double>(edge.HighX()) + m_Margin;
        const size_t nEnd = CellOf(high) + 1;
        for (size_t nCell = CellOf(low); nCell < nEnd; ++nCell) {
            const double cellLow = nCell == 0 ? low : LeftOf(nCell) - m_Margin;
            const double cellHigh = nCell == m_nLast ? high : LeftOf(nCell + 1) + m_Margin;
            visit(nCell, std::max(low, cellLow), std::min(high, cellHigh));
        }
    }

private:
    [[nodiscard]] size_t CellOf(double x) const {
        return static_cast<size_t>(std::clamp((x - m_Left) * m_PerUnit, 0.0, static_cast<double>(m_nLast)));
    }

    [[nodiscard]] double LeftOf(size_t nCell) const {
        return m_Left + static_cast<double>(nCell) / m_PerUnit;
    }

    double m_Left;
    size_t m_nLast;
    double m_PerUnit;
    double m_Margin;
};

/// Two cells an edge: with fewer, more points are looked up in vain; with more, memory gets in the way. Far
/// more edges may overlap in x, and then each enters nearly all cells.
size_t ChooseCells(size_t nEdges) {
    constexpr size_t MOST = 256;
    return std::min(MOST, 2 * nEdges);
}

}  // namespace

void CutIntoCells(const std::vector<SEdge>& draft, float fLargestX, SProfileEdges& edges) {
    const SRange x{edges.m_LowX.front(), edges.m_fRight};
    size_t nCells = ChooseCells(draft.size());
    edges.m_fCellsPerUnit = static_cast<float>(nCells) / (x.m_fHigh - x.m_fLow);
    if (!std::isfinite(edges.m_fCellsPerUnit)) {
        nCells = 1;  // too narrow to be cut
        edges.m_fCellsPerUnit = 0.0F;
    }
    edges.m_Cells.resize(nCells);
    edges.m_FirstInCell.resize(nCells);
    edges.m_fLastCell = static_cast<float>(nCells - 1);
    const CCellGrid grid(x, nCells, edges.m_fCellsPerUnit, CellMargin(fLargestX));
    for (size_t nEdge = draft.size(); nEdge-- > 0;) {
        const SEdge& edge = draft[nEdge];
        const auto heightAt = [&edge](double at) {
            return static_cast<double>(edge.m_Start.y) +
                   edge.Slope() * (at - static_cast<double>(edge.m_Start.x));
        };
        grid.VisitCells(edge, [&](size_t nCell, double low, double high) {
            const auto [lowest, highest] = std::minmax({heightAt(low), heightAt(high)});
            SProfileCell& cell = edges.m_Cells[nCell];
            cell.m_fLow = std::min(cell.m_fLow, static_cast<float>(lowest));
            cell.m_fHigh = std::max(cell.m_fHigh, static_cast<float>(highest));
            edges.m_FirstInCell[nCell] = static_cast<uint32_t>(nEdge);
        });
    }
}

}  // namespace nestrix
