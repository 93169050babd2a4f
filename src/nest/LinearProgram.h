#pragma once

#include <coin/ClpSimplex.hpp>
#include <memory>
#include <vector>

namespace nestrix {

/// Columns under construction, one for each number that is sought. No row has elements in them yet.
class CColumns {
public:
    void Add(double low, double high, double cost) {
        m_Low.push_back(low);
        m_High.push_back(high);
        m_Costs.push_back(cost);
    }

    [[nodiscard]] int Count() const { return static_cast<int>(m_Costs.size()); }

    void AddTo(ClpSimplex& solver) const {
        const std::vector<CoinBigIndex> starts(m_Costs.size() + 1, 0);
        solver.addColumns(Count(), m_Low.data(), m_High.data(), m_Costs.data(), starts.data(), nullptr,
                          nullptr);
    }

private:
    std::vector<double> m_Low, m_High, m_Costs;
};

/// Rows under construction, one for each condition.
class CRows {
public:
    void AddElement(int nColumn, double factor) {
        if (factor != 0.0) {
            m_Columns.push_back(nColumn);
            m_Elements.push_back(factor);
        }
    }

    /// Ends a row: the sum of its elements is at least this.
    void EndRow(double least) {
        m_Starts.push_back(static_cast<CoinBigIndex>(m_Columns.size()));
        m_Least.push_back(least);
    }

    void AddTo(ClpSimplex& solver) const {
        solver.addRows(static_cast<int>(m_Least.size()), m_Least.data(), nullptr, m_Starts.data(),
                       m_Columns.data(), m_Elements.data());
    }

private:
    std::vector<double> m_Elements, m_Least;
    std::vector<int> m_Columns;
    std::vector<CoinBigIndex> m_Starts{0};
};

/// A solver for numbers that are all near 1, so that none need be scaled.
[[nodiscard]] inline std::unique_ptr<ClpSimplex> MakeSolver() {
    auto pSolver = std::make_unique<ClpSimplex>();
    pSolver->setLogLevel(0);
    pSolver->setPrimalTolerance(1e-9);
    pSolver->scaling(0);
    return pSolver;
}

}  // namespace nestrix
