#include "nest/ForbiddenRegion.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "certify/Certify.h"
#include "nest/GridGeometry.h"
#include "tests/nest/GridParts.h"
#include "tests/reference/ReferenceCertificate.h"
#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;
using support::Text;

const CConvexPart SQUARE{{0, 0}, {10, 0}, {10, 10}, {0, 10}};
const CConvexPart TRIANGLE{{0, 0}, {6, 0}, {0, 3}};

double OutsideOf(const SForbiddenRegion& region, SPoint at) {
    double outside = -HUGE_VAL;
    for (const SHalfPlane& side : region.m_Sides) {
        outside = std::max(outside, side.Outside(at));
    }
    return outside;
}

TEST(ForbiddenRegion, OfTwoBoxesIsABox) {
    const SForbiddenRegion region = FindForbiddenRegion(SQUARE, {{0, 0}, {2, 0}, {2, 5}, {0, 5}}, 0.0);
    ASSERT_EQ(region.m_Sides.size(), 4U);
    EXPECT_EQ(region.m_Box.m_Low, (SPoint{-2, -5}));
    EXPECT_EQ(region.m_Box.m_High, (SPoint{10, 10}));
    EXPECT_DOUBLE_EQ(OutsideOf(region, {0, 0}), -2.0);
    EXPECT_DOUBLE_EQ(OutsideOf(region, {13, 0}), 3.0);
}

TEST(ForbiddenRegion, TakesParallelSidesTogether) {
    EXPECT_EQ(FindForbiddenRegion(SQUARE, TRIANGLE, 0.0).m_Sides.size(), 5U);
}

TEST(ForbiddenRegion, IsMirroredWhereTheTwoAreExchanged) {
    const SForbiddenRegion one = FindForbiddenRegion(SQUARE, TRIANGLE, 0.0);
    const SForbiddenRegion other = FindForbiddenRegion(TRIANGLE, SQUARE, 0.0);
    for (const SPoint corner : one.m_Corners) {
        EXPECT_NEAR(OutsideOf(other, -corner), 0.0, 1e-12);
    }
}

TEST(ForbiddenRegion, HasTheSideThatAPointIsFarthestOutsideOf) {
    CSeededRandom random(4);
    for (const double outward : {0.0, 3.0}) {
        const SForbiddenRegion region = FindForbiddenRegion(SQUARE, TRIANGLE, outward);
        for (int i = 0; i < RandomCases(100); ++i) {
            const SPoint at{0.1 * random.Range(-250, 250), 0.1 * random.Range(-250, 250)};
            const SHalfPlane side = FindFarthestSide(SQUARE, TRIANGLE, outward, at);
            EXPECT_NEAR(side.Outside(at), OutsideOf(region, at), 1e-9);
        }
    }
}

TEST(ForbiddenRegion, BeginsItsSidesAtItsCorners) {
    const SForbiddenRegion region = FindForbiddenRegion(SQUARE, TRIANGLE, 3.0);
    for (size_t i = 0; i < region.m_Sides.size(); ++i) {
        const SPoint from = region.m_Corners[i];
        const SPoint to = region.m_Corners[(i + 1) % region.m_Corners.size()];
        EXPECT_NEAR(region.m_Sides[i].Outside(from), 0.0, 1e-9);
        EXPECT_NEAR(region.m_Sides[i].Outside(to), 0.0, 1e-9);
        EXPECT_GT(Cross(region.m_Sides[i].m_Normal, to - from), 0.0);
        EXPECT_NEAR(Length(region.m_Sides[i].m_Normal), 1.0, 1e-12);
    }
}

TEST(ForbiddenRegion, MovedOutwardIsFartherOffByTheDistanceAndAtItsCornersByAFiftiethMore) {
    const SForbiddenRegion region = FindForbiddenRegion(SQUARE, TRIANGLE, 0.0);
    const SForbiddenRegion wide = FindForbiddenRegion(SQUARE, TRIANGLE, 3.0);
    for (const SPoint corner : wide.m_Corners) {
        double nearest = HUGE_VAL;
        for (size_t i = 0; i < region.m_Corners.size(); ++i) {
            const SPoint to = region.m_Corners[(i + 1) % region.m_Corners.size()];
            nearest = std::min(nearest, DistanceOf(corner, region.m_Corners[i], to));
        }
        EXPECT_GE(nearest, 3.0 - 1e-9);
        EXPECT_LE(nearest, 3.0 * 1.02);
    }
}

TEST(ForbiddenRegion, MovedInwardIsNearerByTheDistance) {
    const SForbiddenRegion region = FindForbiddenRegion(SQUARE, SQUARE, -0.5);
    EXPECT_DOUBLE_EQ(OutsideOf(region, {0, 0}), -9.5);
    EXPECT_EQ(region.m_Sides.size(), 4U);
}

CGridRing RandomConvexRing(CSeededRandom& random) {
    while (true) {
        const CGridRing ring = Cleaned(CGridRing{{random.Range(0, 12), random.Range(0, 12)},
                                                 {random.Range(0, 12), random.Range(0, 12)},
                                                 {random.Range(0, 12), random.Range(0, 12)},
                                                 {random.Range(0, 12), random.Range(0, 12)}},
                                       true);
        if (!ring.empty() && support::PartsOf({ring, {}}).size() == 1 && IsSound({ring, {}})) {
            return ring;
        }
    }
}

TEST(ForbiddenRegion, HoldsThePlacesOfRandomPartsThatOverlap) {
    CSeededRandom random(1);
    for (int i = 0; i < RandomCases(5000); ++i) {
        const SGridShape stays{RandomConvexRing(random), {}};
        const SGridShape moves{RandomConvexRing(random), {}};
        const SForbiddenRegion region =
            FindForbiddenRegion(support::PartsOf(stays)[0], support::PartsOf(moves)[0], 0.0);
        const SGridPoint at{random.Range(-12, 12), random.Range(-12, 12)};
        const double outside =
            OutsideOf(region, {static_cast<double>(at.m_nX), static_cast<double>(at.m_nY)});
        const bool bOverlap = DoInsidesOverlap(stays, support::Moved(moves, at));
        // Where they only touch, rounding decides the sign: places are 1 / 25 from sides otherwise.
        ASSERT_TRUE(bOverlap ? outside < -0.01 : outside > -1e-9)
            << Text(stays) << " |" << Text(moves) << " at " << at.m_nX << ", " << at.m_nY;
    }
}

TEST(ForbiddenRegion, KeepsRandomPartsAsFarApartAsAskedForAndHardlyMore) {
    CSeededRandom random(2);
    int nApart = 0;
    for (int i = 0; i < RandomCases(10'000); ++i) {
        const SGridShape stays{RandomConvexRing(random), {}};
        const SGridShape moves{RandomConvexRing(random), {}};
        const SGridPoint at{random.Range(-30, 30), random.Range(-30, 30)};
        const SGridShape moved = support::Moved(moves, at);
        if (DoInsidesOverlap(stays, moved)) {
            continue;
        }
        const int nSpacing = random.Range(1, 12);
        const SForbiddenRegion region =
            FindForbiddenRegion(support::PartsOf(stays)[0], support::PartsOf(moves)[0], nSpacing);
        const double outside =
            OutsideOf(region, {static_cast<double>(at.m_nX), static_cast<double>(at.m_nY)});
        const bool bNearer = reference::AreNearer(stays, moved, nSpacing);
        ASSERT_TRUE(!bNearer || outside < 1e-9) << Text(stays) << " |" << Text(moves);
        const bool bMuchFarther = !reference::AreNearer(stays, moved, nSpacing + 1);
        ASSERT_TRUE(!bMuchFarther || outside > 0.0) << Text(stays) << " |" << Text(moves);
        nApart += bNearer ? 0 : 1;
    }
    EXPECT_GT(nApart, 100);
}

}  // namespace

}  // namespace nestrix
