#include "nest/CompactionProgram.h"

#include <gtest/gtest.h>

namespace nestrix {

namespace {

constexpr double REACH = 10.0;
constexpr SPoint RIGHT{1.0, 0.0};
constexpr SPoint LEFT{-1.0, 0.0};
constexpr SPoint UP{0.0, 1.0};

/// An item that may move by so much at most, either way along both axes.
SMovable ItemThatMoves(double farthest, double top = 0.0) {
    return {{{-farthest, -farthest}, {farthest, farthest}}, top};
}

/// The overlap that is left of items none of which moves.
double OverlapOf(const std::vector<SKeepApart>& rows) {
    const std::vector<SMovable> items(2, ItemThatMoves(0.0));
    const std::optional<SCompaction> compaction = SolveCompaction(items, rows, 0.0, REACH);
    return compaction ? compaction->m_Overlap : -1.0;
}

TEST(CompactionProgram, CountsTheOverlapsWithTwoFixedNeighboursByThemselves) {
    EXPECT_DOUBLE_EQ(OverlapOf({{0, 0, NOT_MOVABLE, RIGHT, 3.0}, {1, 0, NOT_MOVABLE, LEFT, 5.0}}), 8.0);
}

TEST(CompactionProgram, LeavesOfAnItemBetweenTwoFixedOnesWhatNoMoveTakesApart) {
    const std::vector<SKeepApart> rows{{0, 0, NOT_MOVABLE, RIGHT, 3.0}, {1, 0, NOT_MOVABLE, LEFT, 5.0}};
    const std::vector<SMovable> items{ItemThatMoves(REACH)};
    const std::optional<SCompaction> compaction = SolveCompaction(items, rows, 0.0, REACH);
    ASSERT_TRUE(compaction);
    EXPECT_DOUBLE_EQ(compaction->m_Overlap, 8.0);
}

TEST(CompactionProgram, CountsTheOverlapOfAPairOnceWhateverTheLines) {
    EXPECT_DOUBLE_EQ(OverlapOf({{0, 0, 1, RIGHT, 3.0}, {0, 0, 1, UP, 5.0}, {0, 0, 1, LEFT, -1.0}}), 5.0);
}

TEST(CompactionProgram, CountsNoOverlapWhereItemsAreApart) {
    EXPECT_DOUBLE_EQ(OverlapOf({{0, 0, 1, RIGHT, -1.0}, {1, 1, NOT_MOVABLE, UP, 0.0}}), 0.0);
}

TEST(CompactionProgram, LetsAnItemDownToTheNextOne) {
    const std::vector<SMovable> items{ItemThatMoves(REACH, 7.0)};
    const std::optional<SCompaction> compaction =
        SolveCompaction(items, std::vector<SKeepApart>{{0, 0, NOT_MOVABLE, UP, -4.0}}, 0.0, REACH);
    ASSERT_TRUE(compaction);
    EXPECT_DOUBLE_EQ(compaction->m_Moves.front().m_Y, -4.0);
    EXPECT_DOUBLE_EQ(compaction->m_Overlap, 0.0);
}

TEST(CompactionProgram, HasNoSolutionWhereARoomIsEmpty) {
    EXPECT_FALSE(SolveCompaction(std::vector<SMovable>{ItemThatMoves(-1.0)}, {}, 0.0, REACH));
}

}  // namespace

}  // namespace nestrix
