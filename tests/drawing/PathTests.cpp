#include "drawing/SPath.h"

#include <gtest/gtest.h>

#include <limits>

namespace nestrix {

namespace {

constexpr double PI = 3.14159265358979323846;

SPath AllKinds() {
    return {{0, 0},
            {SLineTo{{10, 0}}, SArcTo{{10, 5}, {5, 0}, {0, 5}, -PI / 2, PI, {10, 10}},
             SCurveTo{{8, 12}, {2, 8}, {0, 10}}},
            true};
}

TEST(Paths, EndWithTheirLastStretch) {
    EXPECT_EQ(EndOf(AllKinds()), (SPoint{0, 10}));
    EXPECT_EQ(EndOf(SPath{{3, 4}, {}, false}), (SPoint{3, 4}));
}

TEST(Paths, RunBackTheWayTheyCame) {
    const SPath back = Reversed(AllKinds());
    EXPECT_EQ(back.m_Start, (SPoint{0, 10}));
    EXPECT_TRUE(back.m_bClosed);
    EXPECT_EQ(back.m_Stretches[0], CStretch(SCurveTo{{2, 8}, {8, 12}, {10, 10}}));
    EXPECT_EQ(back.m_Stretches[1], CStretch(SArcTo{{10, 5}, {5, 0}, {0, 5}, -PI / 2 + PI, -PI, {10, 0}}));
    EXPECT_EQ(back.m_Stretches[2], CStretch(SLineTo{{0, 0}}));
    EXPECT_EQ(Reversed(back), AllKinds());
}

TEST(Paths, AreFiniteIfAllTheirNumbersAre) {
    EXPECT_TRUE(IsFinite(AllKinds()));
    const double infinite = std::numeric_limits<double>::infinity();
    for (const CStretch& stretch :
         {CStretch(SLineTo{{infinite, 0}}), CStretch(SArcTo{{0, 0}, {1, 0}, {0, 1}, infinite, 1, {0, 0}}),
          CStretch(SCurveTo{{0, 0}, {0, infinite}, {0, 0}})}) {
        EXPECT_FALSE(IsFinite(SPath{{0, 0}, {stretch}, false}));
    }
    EXPECT_FALSE(IsFinite(SPath{{0, infinite}, {}, false}));
}

}  // namespace

}  // namespace nestrix
