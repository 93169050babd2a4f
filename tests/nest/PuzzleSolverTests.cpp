#include "nest/CPuzzleSolver.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "tests/nest/FreeSets.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix {

namespace {

/// Solves, and remembers the height of the lowest packing that it is given.
class CSolving {
public:
    CSolving(std::vector<SPiece> pieces, const SFreeStrip& strip)
        : m_Pieces(std::move(pieces)),
          m_Problem(m_Pieces, strip, true),
          m_Fields(m_Problem),
          m_Limit(1, 10'000'000, [] { return false; }),
          m_Steps(m_Limit, 0, 100'000'000, [] {}),
          m_Finder(m_Problem, m_Fields, std::vector<SPlace>(m_Problem.Items().size()), m_Random, m_Steps),
          m_Solver(m_Problem, m_Fields, m_Finder, m_Steps,
                   [this](const SSolution& packing) { Take(packing); }) {}

    void Solve() { m_Solver.Solve(); }
    void Lower() { m_Solver.Lower(m_Lowest); }

    [[nodiscard]] const CPuzzleSolver& Solver() const { return m_Solver; }
    [[nodiscard]] double Density() const {
        return m_Problem.TotalArea() / (m_Lowest * static_cast<double>(m_Problem.Strip().m_nWidth));
    }

private:
    void Take(const SSolution& packing) {
        EXPECT_EQ(support::FaultOf(m_Pieces, PackingOf(m_Problem, packing)), "");
        m_Lowest = std::min(m_Lowest, packing.m_Height);
    }

    std::vector<SPiece> m_Pieces;
    CPackProblem m_Problem;
    CFieldTable m_Fields;
    CStepLimit m_Limit;
    CStepCounter m_Steps;
    CRandom m_Random{1};
    CPackingFinder m_Finder;
    CPuzzleSolver m_Solver;
    double m_Lowest = HUGE_VAL;
};

TEST(PuzzleSolver, TakesPiecesThatFillTheirCornersForAPuzzle) {
    CSolving solving(support::Puzzle(), {60.0, 0.0, 0.0});
    EXPECT_FALSE(solving.Solver().IsPuzzleLikely());
    solving.Solve();
    EXPECT_TRUE(solving.Solver().IsPuzzleLikely());
    EXPECT_EQ(solving.Density(), 1.0);
}

TEST(PuzzleSolver, TakesOtherPiecesForNone) {
    CSolving solving(support::MixedSet(), {100.0, 0.0, 0.0});
    solving.Solve();
    EXPECT_FALSE(solving.Solver().IsPuzzleLikely());
}

TEST(PuzzleSolver, FindsLowerPackingsOfRectanglesBelowACeiling) {
    for (uint64_t nSeed = 1; nSeed <= 3; ++nSeed) {
        support::CSeededRandom random(nSeed);
        CSolving solving(support::RandomBoxes(random, 20, 30), {100.0, 0.0, 0.0});
        solving.Solve();
        const double before = solving.Density();
        const uint64_t nBefore = solving.Solver().Steps();
        for (int i = 0; i < 2; ++i) {
            solving.Lower();
        }
        EXPECT_GT(solving.Density(), std::max(before, 0.9)) << before;
        EXPECT_GT(solving.Solver().Steps(), nBefore);
    }
}

}  // namespace

}  // namespace nestrix
