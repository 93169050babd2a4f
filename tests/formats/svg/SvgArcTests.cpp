#include "formats/svg/SvgArc.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "packing/PointVectors.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix {

namespace {

using support::CSeededRandom;

constexpr double PI = std::numbers::pi;

SPoint RandomPoint(CSeededRandom& random) {
    return {random.Between(-9, 9), random.Between(-9, 9)};
}

SArcTo ArcThrough(SPoint start, const SSvgArc& arc, SPoint end) {
    return std::get<SArcTo>(StretchOf(start, arc, end));
}

TEST(SvgArcs, BeginAndEndAtTheirPoints) {
    CSeededRandom random(1);
    for (int i = 0; i < 1000; ++i) {
        const SPoint start = RandomPoint(random);
        const SPoint end = RandomPoint(random);
        const SSvgArc asked{random.Between(0.1F, 20), random.Between(0.1F, 20), random.Between(-400, 400),
                            i % 2 == 0, i % 4 < 2};
        const SArcTo arc = ArcThrough(start, asked, end);
        EXPECT_NEAR(Length(PointAt(arc, arc.m_From) - start), 0.0, 1e-6);
        EXPECT_NEAR(Length(PointAt(arc, arc.m_From + arc.m_Sweep) - end), 0.0, 1e-6);
        EXPECT_EQ(arc.m_End, end);
        EXPECT_EQ(arc.m_Sweep > 0.0, asked.m_bForward);
        EXPECT_TRUE(asked.m_bLarge ? std::abs(arc.m_Sweep) >= PI : std::abs(arc.m_Sweep) <= PI);
    }
}

TEST(SvgArcs, HaveRadiiAtRightAngles) {
    const SArcTo arc = ArcThrough({0, 0}, {30, 20, 30, false, true}, {10, 10});
    EXPECT_NEAR(Length(arc.m_FirstRadius), 30, 1e-12);
    EXPECT_NEAR(Length(arc.m_SecondRadius), 20, 1e-12);
    EXPECT_NEAR(Dot(arc.m_FirstRadius, arc.m_SecondRadius), 0.0, 1e-12);
    EXPECT_NEAR(Cross(arc.m_FirstRadius, arc.m_SecondRadius), 600.0, 1e-9);
}

TEST(SvgArcs, GrowUntilTheyReach) {
    const SArcTo arc = ArcThrough({0, 0}, {2, 1, 0, false, true}, {20, 0});
    EXPECT_DOUBLE_EQ(arc.m_FirstRadius.m_X, 10.0);
    EXPECT_DOUBLE_EQ(arc.m_SecondRadius.m_Y, 5.0);
    EXPECT_DOUBLE_EQ(arc.m_Sweep, PI);
}

TEST(SvgArcs, TakeNegativeRadiiForPositive) {
    EXPECT_EQ(StretchOf({0, 0}, {-3, -2, 0, false, true}, {1, 1}),
              StretchOf({0, 0}, {3, 2, 0, false, true}, {1, 1}));
}

TEST(SvgArcs, OfConjugateRadiiAreFoundAgainByTheirAxes) {
    CSeededRandom random(2);
    for (int i = 0; i < 1000; ++i) {
        SArcTo arc{RandomPoint(random),   RandomPoint(random),   RandomPoint(random),
                   random.Between(-7, 7), random.Between(-3, 3), {}};
        if (std::abs(Cross(arc.m_FirstRadius, arc.m_SecondRadius)) < 0.5 || std::abs(arc.m_Sweep) < 0.1) {
            continue;  // as flat as a line
        }
        arc.m_End = PointAt(arc, arc.m_From + arc.m_Sweep);
        const SArcTo again = ArcThrough(PointAt(arc, arc.m_From), SvgArcOf(arc), arc.m_End);
        EXPECT_NEAR(Length(again.m_Centre - arc.m_Centre), 0.0, 1e-6);
        const SPoint middle = PointAt(arc, arc.m_From + arc.m_Sweep / 2);
        // An affine map keeps the middle of an arc, by its angle.
        EXPECT_NEAR(Length(PointAt(again, again.m_From + again.m_Sweep / 2) - middle), 0.0, 1e-6) << i;
    }
}

TEST(SvgArcs, AreSplitIntoQuartersAtMost) {
    SArcTo circle{{0, 0}, {2, 0}, {0, 2}, 0.5, -2.0 * PI, {}};
    circle.m_End = PointAt(circle, circle.m_From);
    const std::vector<SArcTo> quarters = InQuarters(circle);
    ASSERT_EQ(quarters.size(), 4U);
    EXPECT_EQ(quarters.back().m_End, circle.m_End);
    for (size_t i = 0; i < 3; ++i) {
        EXPECT_DOUBLE_EQ(quarters[i].m_Sweep, -PI / 2.0);
        EXPECT_EQ(quarters[i].m_End, PointAt(circle, quarters[i + 1].m_From));
    }
    EXPECT_EQ(InQuarters(quarters[0]).size(), 1U);
    SArcTo third = circle;
    third.m_Sweep = 2.0 * PI / 3.0;
    EXPECT_EQ(InQuarters(third).size(), 2U);
}

}  // namespace

}  // namespace nestrix
