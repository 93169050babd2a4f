#include "nest/CompactionProgram.h"

#include <coin/ClpSimplex.hpp>
#include <coin/CoinPackedMatrix.hpp>

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

bool AreOfOnePair(const SKeepApart& a, const SKeepApart& b) {
    return a.m_nFirst == b.m_nFirst && a.m_nSecond == b.m_nSecond;
}

}  // namespace

std::optional<SCompaction> SolveCompaction(std::span<const SMovable> items, std::span<const SKeepApart> rows,
                                           double fixedTop, double reach) {
    const double fallCost = FALL_COST / static_cast<double>(items.size());
    CProgram program;
    for (const SMovable& item : items) {
        if (item.m_Room.m_Low.m_X > item.m_Room.m_High.m_X ||
            item.m_Room.m_Low.m_Y > item.m_Room.m_High.m_Y) {
            return std::nullopt;
        }
        program.AddColumn(item.m_Room.m_Low.m_X / reach, item.m_Room.m_High.m_X / reach, 0.0);
        program.AddColumn(item.m_Room.m_Low.m_Y / reach, item.m_Room.m_High.m_Y / reach, fallCost);
    }
    const int nHeight = program.AddColumn(fixedTop / reach, COIN_DBL_MAX, 1.0);
    for (size_t i = 0; i < items.size(); ++i) {
        program.AddElement(nHeight, 1.0);
        program.AddElement(static_cast<int>(2 * i + 1), -1.0);
        program.EndRow(items[i].m_Top / reach);
    }
    for (size_t i = 0; i < rows.size();) {
        size_t nEnd = i;
        bool bOverlap = false;
        for (; nEnd < rows.size() && AreOfOnePair(rows[i], rows[nEnd]); ++nEnd) {
            bOverlap = bOverlap || rows[nEnd].m_Least > 0.0;
        }
        const int nOverlap = bOverlap ? program.AddColumn(0.0, COIN_DBL_MAX, OVERLAP_COST) : nHeight;
        for (; i < nEnd; ++i) {
            const auto addItem = [&](size_t nItem, double sign) {
                if (nItem != NOT_MOVABLE) {
                    program.AddElement(static_cast<int>(2 * nItem), sign * rows[i].m_Normal.m_X);
                    program.AddElement(static_cast<int>(2 * nItem + 1), sign * rows[i].m_Normal.m_Y);
                }
            };
            addItem(rows[i].m_nFirst, 1.0);
            addItem(rows[i].m_nSecond, -1.0);
            program.AddElement(nOverlap, bOverlap ? 1.0 : 0.0);
            program.EndRow(rows[i].m_Least / reach);
        }
    }
    const std::vector<double> solution = program.Solve();
    if (solution.empty()) {
        return std::nullopt;
    }
    SCompaction compaction;
    for (size_t i = 0; i < items.size(); ++i) {
        compaction.m_Moves.push_back(SPoint{solution[2 * i], solution[2 * i + 1]} * reach);
    }
    for (size_t i = static_cast<size_t>(nHeight) + 1; i < solution.size(); ++i) {
        compaction.m_Overlap += solution[i] * reach;
    }
    return compaction;
}

}  // namespace nestrix
