#include "nest/CompactionProgram.h"

#include <coin/ClpSimplex.hpp>
#include <coin/CoinPackedMatrix.hpp>

#include <algorithm>

namespace nestrix {

namespace {

/// What a unit of overlap that is left costs, in units of height: more than could be gained by leaving it.
constexpr double OVERLAP_COST = 30.0;

/// What a unit of mean height of the items costs.
constexpr double FALL_COST = 0.001;

/// A program under construction: a column for each number that is sought, a row for each condition.
class CProgram {
public:
    int AddColumn(double low, double high, double cost) {
        m_ColumnLow.push_back(low);
        m_ColumnHigh.push_back(high);
        m_Costs.push_back(cost);
        return static_cast<int>(m_Costs.size()) - 1;
    }

    void AddElement(int nColumn, double factor) {
        if (factor != 0.0) {
            m_Indices.push_back(nColumn);
            m_Elements.push_back(factor);
        }
    }

    /// Ends a row: the sum of its elements is at least this.
    void EndRow(double least) {
        m_Starts.push_back(static_cast<CoinBigIndex>(m_Indices.size()));
        m_Least.push_back(least);
    }

    /// @return the value of each column; nothing where there is no solution.
    [[nodiscard]] std::vector<double> Solve() const {
        const CoinPackedMatrix matrix(false, static_cast<int>(m_Costs.size()),
                                      static_cast<int>(m_Least.size()),
                                      static_cast<CoinBigIndex>(m_Elements.size()), m_Elements.data(),
                                      m_Indices.data(), m_Starts.data(), nullptr);
        ClpSimplex program;
        program.setLogLevel(0);
        program.loadProblem(matrix, m_ColumnLow.data(), m_ColumnHigh.data(), m_Costs.data(), m_Least.data(),
                            nullptr);
        program.setPrimalTolerance(1e-9);
        program.dual();
        if (program.status() != 0) {
            return {};
        }
        const double* const pSolution = program.primalColumnSolution();
        return {pSolution, pSolution + m_Costs.size()};
    }

private:
    std::vector<double> m_ColumnLow, m_ColumnHigh, m_Costs, m_Least, m_Elements;
    std::vector<int> m_Indices;
    std::vector<CoinBigIndex> m_Starts{0};
};

// The columns are those of the items' moves, two each, that of the height, and those of the overlaps. All
// lengths are counted in reaches.

int ColumnOfX(size_t nItem) {
    return static_cast<int>(2 * nItem);
}

int ColumnOfY(size_t nItem) {
    return ColumnOfX(nItem) + 1;
}

bool IsEmpty(const SPlaneBox& room) {
    return room.m_Low.m_X > room.m_High.m_X || room.m_Low.m_Y > room.m_High.m_Y;
}

void AddMoves(CProgram& program, std::span<const SMovable> items, double reach) {
    const double fallCost = FALL_COST / static_cast<double>(items.size());
    for (const SMovable& item : items) {
        program.AddColumn(item.m_Room.m_Low.m_X / reach, item.m_Room.m_High.m_X / reach, 0.0);
        program.AddColumn(item.m_Room.m_Low.m_Y / reach, item.m_Room.m_High.m_Y / reach, fallCost);
    }
}

/// No item is higher than the strip, and nor is what does not move.
void AddHeight(CProgram& program, std::span<const SMovable> items, double fixedTop, double reach) {
    const int nHeight = program.AddColumn(fixedTop / reach, COIN_DBL_MAX, 1.0);
    for (size_t i = 0; i < items.size(); ++i) {
        program.AddElement(nHeight, 1.0);
        program.AddElement(ColumnOfY(i), -1.0);
        program.EndRow(items[i].m_Top / reach);
    }
}

void AddMoveAlong(CProgram& program, size_t nItem, SPoint normal) {
    if (nItem != NOT_MOVABLE) {
        program.AddElement(ColumnOfX(nItem), normal.m_X);
        program.AddElement(ColumnOfY(nItem), normal.m_Y);
    }
}

/// The rows of one pair. What the items' moves leave of an overlap is a column of its own, as dear as can be.
void AddPair(CProgram& program, std::span<const SKeepApart> rows, double reach) {
    const bool bOverlap =
        std::any_of(rows.begin(), rows.end(), [](const SKeepApart& row) { return row.m_Least > 0.0; });
    const std::optional<int> overlap =
        bOverlap ? std::optional(program.AddColumn(0.0, COIN_DBL_MAX, OVERLAP_COST)) : std::nullopt;
    for (const SKeepApart& row : rows) {
        AddMoveAlong(program, row.m_nFirst, row.m_Normal);
        AddMoveAlong(program, row.m_nSecond, -row.m_Normal);
        if (overlap) {
            program.AddElement(*overlap, 1.0);
        }
        program.EndRow(row.m_Least / reach);
    }
}

void AddPairs(CProgram& program, std::span<const SKeepApart> rows, double reach) {
    while (!rows.empty()) {
        const auto end = std::find_if(rows.begin(), rows.end(), [&rows](const SKeepApart& row) {
            return row.m_nPair != rows.front().m_nPair;
        });
        const size_t nRows = static_cast<size_t>(end - rows.begin());
        AddPair(program, rows.first(nRows), reach);
        rows = rows.subspan(nRows);
    }
}

SCompaction CompactionIn(const std::vector<double>& solution, size_t nItems, double reach) {
    SCompaction compaction;
    for (size_t i = 0; i < nItems; ++i) {
        compaction.m_Moves.push_back(SPoint{solution[2 * i], solution[2 * i + 1]} * reach);
    }
    const size_t nFirstOverlap = 2 * nItems + 1;
    for (size_t i = nFirstOverlap; i < solution.size(); ++i) {
        compaction.m_Overlap += solution[i] * reach;
    }
    return compaction;
}

}  // namespace

std::optional<SCompaction> SolveCompaction(std::span<const SMovable> items, std::span<const SKeepApart> rows,
                                           double fixedTop, double reach) {
    if (std::any_of(items.begin(), items.end(), [](const SMovable& item) { return IsEmpty(item.m_Room); })) {
        return std::nullopt;
    }
    CProgram program;
    AddMoves(program, items, reach);
    AddHeight(program, items, fixedTop, reach);
    AddPairs(program, rows, reach);
    const std::vector<double> solution = program.Solve();
    return solution.empty() ? std::nullopt : std::optional(CompactionIn(solution, items.size(), reach));
}

}  // namespace nestrix
