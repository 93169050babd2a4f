#include "nest/GridGeometry.h"

#include <gtest/gtest.h>

#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::GridRectangle;
using support::RandomCases;
using support::Text;

TEST(TwiceArea, IsPositiveForACounterClockwiseRing) {
    EXPECT_TRUE(TwiceArea(GridRectangle({3, 4}, 5, 2)) == 20);
    EXPECT_TRUE(TwiceArea(CGridRing{{0, 0}, {0, 2}, {2, 0}}) == -4);
}

TEST(TwiceArea, IsExactForTheLargestShapes) {
    constexpr int64_t SIDE = GRID_LENGTH_MOST;
    const CGridRing ring = GridRectangle({-SIDE / 2, -SIDE / 2}, SIDE, SIDE);
    EXPECT_TRUE(TwiceArea(ring) == static_cast<CInt128>(2) * SIDE * SIDE);
}

TEST(TwiceArea, OfFewerThanThreePointsIsNone) {
    EXPECT_TRUE(TwiceArea(CGridRing{}) == 0);
    EXPECT_TRUE(TwiceArea(CGridRing{{1, 2}, {3, 4}}) == 0);
}

TEST(Cleaned, LeavesAGoodRingAlone) {
    const CGridRing ring = GridRectangle({0, 0}, 4, 3);
    EXPECT_EQ(Cleaned(ring, true), ring);
}

TEST(Cleaned, TurnsARingAsAskedFor) {
    const CGridRing ring = GridRectangle({0, 0}, 4, 3);
    EXPECT_TRUE(TwiceArea(Cleaned(ring, false)) == -24);
    EXPECT_TRUE(TwiceArea(Cleaned(Cleaned(ring, false), true)) == 24);
}

TEST(Cleaned, DropsRepeatedPointsAndThoseInAStraightLine) {
    const CGridRing ring{{0, 0}, {0, 0}, {2, 0}, {4, 0}, {4, 4}, {4, 4}, {4, 4}, {0, 4}, {0, 2}, {0, 0}};
    EXPECT_EQ(Cleaned(ring, true), GridRectangle({0, 0}, 4, 4));
}

TEST(Cleaned, DropsASpikeThatRunsBackOnItself) {
    const CGridRing ring{{0, 0}, {9, 0}, {4, 0}, {4, 4}, {0, 4}};
    EXPECT_TRUE(TwiceArea(Cleaned(ring, true)) == 32);
    EXPECT_EQ(Cleaned(ring, true).size(), 4U);
}

TEST(Cleaned, LeavesNothingOfARingWithoutInside) {
    EXPECT_TRUE(Cleaned(CGridRing{}, true).empty());
    EXPECT_TRUE(Cleaned(CGridRing{{1, 1}, {1, 1}, {1, 1}}, true).empty());
    EXPECT_TRUE(Cleaned(CGridRing{{0, 0}, {4, 4}, {8, 8}, {2, 2}}, true).empty());
    EXPECT_TRUE(Cleaned(CGridRing{{0, 0}, {4, 0}, {4, 4}, {4, 0}}, true).empty());
}

TEST(Cleaned, GivesCounterClockwiseOutlinesAndClockwiseHolesWithAnInside) {
    const SGridShape shape{{{0, 0}, {0, 9}, {9, 9}, {9, 0}},
                           {GridRectangle({2, 2}, 2, 2), {{5, 5}, {6, 6}, {7, 7}}, {{5, 2}, {5, 4}, {7, 2}}}};
    const SGridShape clean = Cleaned(shape);
    EXPECT_TRUE(TwiceArea(clean.m_Outline) == 162);
    ASSERT_EQ(clean.m_Holes.size(), 2U);
    EXPECT_TRUE(TwiceArea(clean.m_Holes[0]) == -8);
    EXPECT_TRUE(TwiceArea(clean.m_Holes[1]) == -4);
}

TEST(Cleaned, KeepsTheAreaOfRandomRings) {
    CSeededRandom random(1);
    for (int i = 0; i < RandomCases(20'000); ++i) {
        const CGridRing ring = support::RandomRing(random, random.Range(1, 9), random.Range(1, 6));
        const CGridRing clean = Cleaned(ring, true);
        const CInt128 area = TwiceArea(ring);
        ASSERT_TRUE(TwiceArea(clean) == (area < 0 ? -area : area)) << Text({ring, {}});
        for (size_t k = 0; k < clean.size(); ++k) {
            ASSERT_TRUE(Turn(clean[k], clean[(k + 1) % clean.size()], clean[(k + 2) % clean.size()]) != 0)
                << Text({ring, {}});
        }
    }
}

TEST(CrossingItself, IsWhatABowTieDoes) {
    EXPECT_TRUE(CrossesItself({{{0, 0}, {9, 9}, {9, 0}, {0, 9}}, {}}));
}

TEST(CrossingItself, IsNotTouching) {
    EXPECT_FALSE(CrossesItself({{{0, 0}, {20, 0}, {20, 20}, {10, 0}, {0, 20}}, {}}));
    EXPECT_FALSE(CrossesItself({{{0, 0}, {5, 5}, {10, 0}, {10, 10}, {5, 5}, {0, 10}}, {}}));
    EXPECT_FALSE(
        CrossesItself(Cleaned(SGridShape{GridRectangle({0, 0}, 9, 9), {GridRectangle({0, 2}, 3, 3)}})));
}

TEST(CrossingItself, IsWhatAHoleDoesThatReachesOut) {
    EXPECT_TRUE(
        CrossesItself(Cleaned(SGridShape{GridRectangle({0, 0}, 9, 9), {GridRectangle({5, 5}, 9, 2)}})));
}

TEST(CrossingItself, IsWhatAnOutlineDoesThatIsWalkedTwice) {
    const CGridRing square = GridRectangle({0, 0}, 5, 5);
    CGridRing twice = square;
    twice.insert(twice.end(), square.begin(), square.end());
    EXPECT_TRUE(CrossesItself({twice, {}}));
}

TEST(CrossingItself, IsNothingThatASoundOutlineDoes) {
    CSeededRandom random(2);
    for (int i = 0; i < RandomCases(4000); ++i) {
        SGridShape shape = Cleaned(support::RandomSoundShape(random, 8));
        shape.m_Holes.clear();
        ASSERT_FALSE(CrossesItself(shape)) << Text(shape);
    }
}

}  // namespace

}  // namespace nestrix
