#include "nest/Sectors.h"

#include <gtest/gtest.h>

namespace nestrix {

namespace {

TEST(Sectors, CountARightAngleAsOne) {
    EXPECT_EQ(AngleOf({5.0, 0.0}), 0.0);
    EXPECT_EQ(AngleOf({0.0, 5.0}), 1.0);
    EXPECT_EQ(AngleOf({-5.0, 0.0}), 2.0);
    EXPECT_EQ(AngleOf({0.0, -5.0}), 3.0);
}

TEST(Sectors, GrowWithTheAngle) {
    double last = -1.0;
    for (const SPoint direction : {SPoint{9.0, 1.0}, SPoint{1.0, 9.0}, SPoint{-1.0, 9.0}, SPoint{-9.0, 1.0},
                                   SPoint{-9.0, -1.0}, SPoint{-1.0, -9.0}, SPoint{1.0, -9.0}}) {
        EXPECT_GT(AngleOf(direction), last);
        last = AngleOf(direction);
    }
}

TEST(Sectors, HaveOppositeDirectionsAHalfTurnApart) {
    EXPECT_DOUBLE_EQ(AngleOf({-3.0, -7.0}), AngleOf({3.0, 7.0}) + HALF_TURN);
}

TEST(Sectors, LeaveTheWholeCircleWhereNothingIsTaken) {
    ASSERT_EQ(GapsBetween({}).size(), 1U);
    EXPECT_EQ(GapsBetween({}).front().m_Width, FULL_TURN);
}

TEST(Sectors, LeaveNothingOfAFullCircle) {
    EXPECT_TRUE(GapsBetween({{0.5, FULL_TURN}}).empty());
    EXPECT_TRUE(GapsBetween({{0.0, 2.0}, {2.0, 2.0}}).empty());
}

TEST(Sectors, LeaveTheGapsBetweenThem) {
    const std::vector<SSector> gaps = GapsBetween({{2.0, 1.0}, {0.5, 1.0}});
    ASSERT_EQ(gaps.size(), 2U);
    EXPECT_DOUBLE_EQ(gaps[0].m_Start, 1.5);
    EXPECT_DOUBLE_EQ(gaps[0].m_Width, 0.5);
    EXPECT_DOUBLE_EQ(gaps[1].m_Start, 3.0);
    EXPECT_DOUBLE_EQ(gaps[1].m_Width, 1.5);
}

TEST(Sectors, KnowThatOneCoversTheBeginningOfTheCircle) {
    const std::vector<SSector> gaps = GapsBetween({{3.5, 1.5}, {0.5, 1.5}});
    ASSERT_EQ(gaps.size(), 1U);
    EXPECT_DOUBLE_EQ(gaps[0].m_Start, 2.0);
    EXPECT_DOUBLE_EQ(gaps[0].m_Width, 1.5);
}

TEST(Sectors, TakeASlitForNoGap) {
    EXPECT_TRUE(GapsBetween({{0.0, 2.0}, {2.0 + SAME_ANGLE / 2.0, 2.0 - SAME_ANGLE}}).empty());
}

TEST(Sectors, LieWithinOthersButForRounding) {
    const SSector outer{3.5, 1.0};
    EXPECT_TRUE(IsWithin({3.7, 0.5}, outer));
    EXPECT_TRUE(IsWithin({0.1, 0.3}, outer));
    EXPECT_TRUE(IsWithin({3.5 - SAME_ANGLE / 2.0, 1.0 + SAME_ANGLE / 2.0}, outer));
    EXPECT_FALSE(IsWithin({3.4, 0.5}, outer));
    EXPECT_FALSE(IsWithin({0.1, 0.6}, outer));
}

}  // namespace

}  // namespace nestrix
