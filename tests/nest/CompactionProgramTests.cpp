#include "nest/CCompactionProgram.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "tests/support/CSeededRandom.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;
using CRows = std::vector<SKeepApart>;

constexpr double REACH = 10.0;
constexpr SPoint RIGHT{1.0, 0.0};
constexpr SPoint LEFT{-1.0, 0.0};
constexpr SPoint UP{0.0, 1.0};

/// An item that may move by so much at most, either way along both axes.
SMovable ItemThatMoves(double farthest, double top = 0.0) {
    return {{{-farthest, -farthest}, {farthest, farthest}}, top};
}

/// What becomes of the items after the rows of each call were added, and the program solved each time.
SCompaction SolvedAfterEach(const std::vector<SMovable>& items, const std::vector<CRows>& calls) {
    CCompactionProgram program(items, 0.0, REACH);
    std::optional<SCompaction> compaction;
    for (const CRows& rows : calls) {
        program.Add(rows);
        compaction = program.Solve();
    }
    EXPECT_TRUE(compaction);
    return compaction.value_or(SCompaction{std::vector<SPoint>(items.size()), -1.0});
}

/// The overlap that is left of items none of which moves.
double OverlapOf(const std::vector<CRows>& calls) {
    return SolvedAfterEach(std::vector<SMovable>(2, ItemThatMoves(0.0)), calls).m_Overlap;
}

TEST(CompactionProgram, CountsTheOverlapsWithTwoFixedNeighboursByThemselves) {
    EXPECT_DOUBLE_EQ(OverlapOf({{{0, 0, NOT_MOVABLE, RIGHT, 3.0}, {1, 0, NOT_MOVABLE, LEFT, 5.0}}}), 8.0);
}

TEST(CompactionProgram, LeavesOfAnItemBetweenTwoFixedOnesWhatNoMoveTakesApart) {
    const CRows rows{{0, 0, NOT_MOVABLE, RIGHT, 3.0}, {1, 0, NOT_MOVABLE, LEFT, 5.0}};
    EXPECT_DOUBLE_EQ(SolvedAfterEach({ItemThatMoves(REACH)}, {rows}).m_Overlap, 8.0);
}

TEST(CompactionProgram, CountsTheOverlapOfAPairOnceWhateverTheLines) {
    EXPECT_DOUBLE_EQ(OverlapOf({{{0, 0, 1, RIGHT, 3.0}, {0, 0, 1, UP, 5.0}, {0, 0, 1, LEFT, -1.0}}}), 5.0);
}

TEST(CompactionProgram, CountsTheOverlapOfAPairOnceWheneverItsLinesWereAdded) {
    EXPECT_DOUBLE_EQ(OverlapOf({{{0, 0, 1, RIGHT, 3.0}}, {{0, 0, 1, UP, 5.0}, {0, 0, 1, LEFT, -1.0}}}), 5.0);
}

TEST(CompactionProgram, CountsTheOverlapOfAPairThatIsAddedLater) {
    EXPECT_DOUBLE_EQ(OverlapOf({{{0, 0, 1, RIGHT, 3.0}}, {{1, 0, NOT_MOVABLE, UP, 5.0}}}), 8.0);
}

TEST(CompactionProgram, CountsNoOverlapWhereItemsAreApart) {
    EXPECT_DOUBLE_EQ(OverlapOf({{{0, 0, 1, RIGHT, -1.0}, {1, 1, NOT_MOVABLE, UP, 0.0}}}), 0.0);
}

TEST(CompactionProgram, LetsAnItemDownToTheNextOne) {
    const SCompaction compaction =
        SolvedAfterEach({ItemThatMoves(REACH, 7.0)}, {{{0, 0, NOT_MOVABLE, UP, -4.0}}});
    EXPECT_DOUBLE_EQ(compaction.m_Moves.front().m_Y, -4.0);
    EXPECT_DOUBLE_EQ(compaction.m_Overlap, 0.0);
}

TEST(CompactionProgram, LiftsAnItemAgainOntoOneThatIsAddedLater) {
    const std::vector<SMovable> items{ItemThatMoves(REACH, 7.0)};
    const CRows low{{0, 0, NOT_MOVABLE, UP, -4.0}};
    const CRows high{{1, 0, NOT_MOVABLE, UP, -2.5}};
    EXPECT_DOUBLE_EQ(SolvedAfterEach(items, {low, high}).m_Moves.front().m_Y, -2.5);
}

TEST(CompactionProgram, OnceTightenedLeavesNothingForRounding) {
    const std::vector<SMovable> items{ItemThatMoves(REACH, 7.0)};
    CCompactionProgram program(items, 0.0, REACH);
    program.Add(CRows{{0, 0, NOT_MOVABLE, UP, -3.0, 1.0}});
    EXPECT_DOUBLE_EQ(program.Solve()->m_Moves.front().m_Y, -3.0);
    program.Tighten();
    EXPECT_DOUBLE_EQ(program.Solve()->m_Moves.front().m_Y, -4.0);
    program.Tighten();
    EXPECT_DOUBLE_EQ(program.Solve()->m_Moves.front().m_Y, -4.0);
    program.Add(CRows{{1, 0, NOT_MOVABLE, UP, -2.0, 1.0}});
    EXPECT_DOUBLE_EQ(program.Solve()->m_Moves.front().m_Y, -2.0);
}

TEST(CompactionProgram, HasNoSolutionWhereARoomIsEmpty) {
    EXPECT_FALSE(CCompactionProgram(std::vector<SMovable>{ItemThatMoves(-1.0)}, 0.0, REACH).Solve());
}

/// What the program makes least, but for what the items' mean height adds.
double CostOf(const std::vector<SMovable>& items, const SCompaction& compaction) {
    double height = 0.0;
    for (size_t i = 0; i < items.size(); ++i) {
        height = std::max(height, items[i].m_Top + compaction.m_Moves[i].m_Y);
    }
    return height + 30.0 * compaction.m_Overlap;
}

TEST(CompactionProgram, SolvesRowsAddedOneByOneAsItSolvesAllAtOnce) {
    CSeededRandom random(3);
    for (int nCase = 0; nCase < RandomCases(100); ++nCase) {
        std::vector<SMovable> items;
        for (int i = 0; i < 5; ++i) {
            items.push_back(ItemThatMoves(REACH, 0.1 * random.Range(0, 500)));
        }
        CRows all;
        std::vector<CRows> oneByOne;
        for (size_t nPair = 0; nPair < 20; ++nPair) {
            const double angle = 0.001 * random.Range(0, 6283);
            const auto nFirst = static_cast<size_t>(random.Range(0, 4));
            all.push_back({nPair,
                           nFirst,
                           nPair % 3 == 0 ? NOT_MOVABLE : (nFirst + 1) % 5,
                           {std::cos(angle), std::sin(angle)},
                           0.01 * random.Range(-1500, 300)});
            oneByOne.push_back({all.back()});
        }
        // The falling of all items costs a thousandth of the height.
        EXPECT_NEAR(CostOf(items, SolvedAfterEach(items, oneByOne)),
                    CostOf(items, SolvedAfterEach(items, {all})), 0.002 * REACH)
            << nCase;
    }
}

}  // namespace

}  // namespace nestrix
