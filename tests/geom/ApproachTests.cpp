#include <gtest/gtest.h>

#include "tests/support/CSeededRandom.h"
#include "tests/support/Pieces.h"

namespace nestrix {

namespace {

using support::MakePolygon;
using support::MakeSquare;
using support::PlacedAt;

struct SContact {
    bool m_bFound = false;
    float m_fDistance = -1.0F;
    float m_fX = -2.0F;
    float m_fY = -3.0F;

    friend bool operator==(const SContact&, const SContact&) = default;
};

void PrintTo(const SContact& contact, std::ostream* pStream) {
    *pStream << (contact.m_bFound ? "found" : "none") << " distance " << contact.m_fDistance << " at ("
             << contact.m_fX << ", " << contact.m_fY << ")";
}

SContact Approach(const CPolygon& moving, CPolygon obstacle) {
    SContact contact;
    contact.m_bFound =
        moving.GetApproachDistanceFromTop(obstacle, &contact.m_fDistance, &contact.m_fX, &contact.m_fY);
    return contact;
}

SContact ApproachOfSquares(float fX, float fY) {
    return Approach(PlacedAt(MakeSquare(20), fX, fY), MakeSquare(20));
}

TEST(SquareAboveASquare, TouchesItWithItsLowerLeftVertexFirst) {
    EXPECT_EQ(ApproachOfSquares(5, 50), (SContact{true, 30, 5, 20}));
}

TEST(SquareInLineWithASquare, DoesNotFallAtAll) {
    EXPECT_EQ(ApproachOfSquares(0, 50), (SContact{true, 0, 20, 20}));
    EXPECT_EQ(ApproachOfSquares(0, 5000), (SContact{true, 0, 20, 20}));
}

TEST(SquareOverlappingASquareInLine, ReportsANegativeDistance) {
    EXPECT_EQ(ApproachOfSquares(0, 10), (SContact{true, -10, 20, 20}));
}

TEST(SquareBesideASquare, FindsNothingAndLeavesTheContactUntouched) {
    EXPECT_EQ(ApproachOfSquares(100, 50), (SContact{false, 0, -2, -3}));
}

TEST(SquareNextToASquare, TouchesItsCornerWithItsSide) {
    // The moving square's left side lies exactly over the obstacle's upper right corner.
    EXPECT_EQ(ApproachOfSquares(20, 50), (SContact{true, 0, 20, 20}));
}

TEST(NarrowPieceOverAWideOne, FallsOntoItsTop) {
    const CPolygon narrow = PlacedAt(support::MakeRectangle(4, 4), 8, 100);
    EXPECT_EQ(Approach(narrow, MakeSquare(20)), (SContact{true, 80, 8, 20}));
}

TEST(WidePieceOverANarrowOne, FallsOntoTheObstaclesVertex) {
    const CPolygon wide = PlacedAt(MakeSquare(20), 0, 100);
    const CPolygon narrow = PlacedAt(support::MakeRectangle(4, 4), 8, 0);
    EXPECT_EQ(Approach(wide, narrow), (SContact{true, 96, 12, 4}));
}

TEST(SmallestGap, WinsOverAnEarlierLargerOne) {
    // A ramp rising to the right: the square's right vertex meets it first.
    const CPolygon ramp = MakePolygon({{0, 0, 0}, {40, 0, 0}, {40, 20, 0}});
    const CPolygon square = PlacedAt(MakeSquare(10), 10, 50);
    EXPECT_EQ(Approach(square, ramp), (SContact{true, 40, 20, 10}));
}

TEST(NullOutputs, ChangeNothingButThemselves) {
    const CPolygon moving = PlacedAt(MakeSquare(20), 5, 50);
    CPolygon obstacle = MakeSquare(20);
    SContact contact;
    EXPECT_TRUE(moving.GetApproachDistanceFromTop(obstacle, nullptr, nullptr, nullptr));
    EXPECT_TRUE(moving.GetApproachDistanceFromTop(obstacle, &contact.m_fDistance, nullptr, nullptr));
    EXPECT_EQ(contact.m_fDistance, 30.0F);
    EXPECT_TRUE(moving.GetApproachDistanceFromTop(obstacle, nullptr, &contact.m_fX, nullptr));
    EXPECT_TRUE(moving.GetApproachDistanceFromTop(obstacle, nullptr, nullptr, &contact.m_fY));
    EXPECT_EQ(contact.m_fX, 5.0F);
    EXPECT_EQ(contact.m_fY, 20.0F);
}

TEST(NullDistance, LeavesOnlyTheResult) {
    const CPolygon moving = PlacedAt(MakeSquare(20), 100, 50);
    CPolygon obstacle = MakeSquare(20);
    EXPECT_FALSE(moving.GetApproachDistanceFromTop(obstacle, nullptr, nullptr, nullptr));
}

TEST(Approach, ChangesNeitherPolygon) {
    const CPolygon before = PlacedAt(MakeSquare(20), 5, 50);
    CPolygon moving = before;
    CPolygon obstacle = MakeSquare(20);
    EXPECT_TRUE(moving.GetApproachDistanceFromTop(obstacle, nullptr, nullptr, nullptr));
    EXPECT_EQ(moving, before);
    EXPECT_EQ(obstacle, MakeSquare(20));
}

TEST(Approach, ByReferencePointsOrByGivenPlacesIsTheSame) {
    const CPolygon moving = MakeSquare(20);
    const SApproach approach = FindApproach(moving, {5, 50, 0}, moving, {});
    EXPECT_TRUE(approach.m_bFound);
    EXPECT_EQ(approach.m_fDistance, 30.0F);
    EXPECT_EQ(approach.m_fContactX, 5.0F);
    EXPECT_EQ(approach.m_fContactY, 20.0F);
}

TEST(ClockwiseObstacle, IsNotFelt) {
    const CPolygon moving = PlacedAt(MakeSquare(20), 5, 50);
    const CPolygon obstacle = MakePolygon(support::Reversed(support::RectangleOutline(20, 20)));
    EXPECT_FALSE(Approach(moving, obstacle).m_bFound);
}

TEST(PolygonWithoutVertices, NeitherFallsOntoNorStopsAnything) {
    EXPECT_FALSE(Approach(PlacedAt(CPolygon(), 5, 50), MakeSquare(20)).m_bFound);
    EXPECT_FALSE(Approach(PlacedAt(MakeSquare(20), 5, 50), CPolygon()).m_bFound);
}

/// A convex piece well above another, out of line with it: odd multiples of 2^−10 against whole numbers.
struct SPair {
    CPolygon m_Moving;
    CPolygon m_Obstacle;
};

SPair MakePair(support::CSeededRandom& random) {
    const auto makePiece = [&] {
        return MakePolygon(
            support::Snapped(support::ConvexOutline(random, random.Range(3, 12), 40, 40), 1.0F));
    };
    SPair pair;
    pair.m_Moving = makePiece();
    pair.m_Obstacle = makePiece();
    pair.m_Moving.m_ReferencePoint = {static_cast<float>(random.Range(-30, 30)) + 0x1p-10F, 128, 0};
    return pair;
}

TEST(PieceLiftedByAWholeNumber, FallsThatMuchFurther) {
    support::CSeededRandom random(14);
    for (int i = 0; i < 300; ++i) {
        SPair pair = MakePair(random);
        const SContact low = Approach(pair.m_Moving, pair.m_Obstacle);
        pair.m_Moving.m_ReferencePoint.y += 64;
        const SContact high = Approach(pair.m_Moving, pair.m_Obstacle);
        ASSERT_EQ(high.m_bFound, low.m_bFound);
        if (low.m_bFound) {
            ASSERT_NEAR(high.m_fDistance, low.m_fDistance + 64, 1e-4);
            ASSERT_EQ(high.m_fX, low.m_fX);
        }
    }
}

TEST(PieceThatHasFallen, HasNothingLeftToFall) {
    support::CSeededRandom random(15);
    int nContacts = 0;
    for (int i = 0; i < 300; ++i) {
        SPair pair = MakePair(random);
        const SContact contact = Approach(pair.m_Moving, pair.m_Obstacle);
        if (contact.m_bFound) {
            ++nContacts;
            // A hair above the contact, so that rounding does not carry it past.
            pair.m_Moving.m_ReferencePoint.y -= contact.m_fDistance - 0.001F;
            const SContact rest = Approach(pair.m_Moving, pair.m_Obstacle);
            ASSERT_TRUE(rest.m_bFound);
            ASSERT_NEAR(rest.m_fDistance, 0.001, 1e-4);
        }
    }
    EXPECT_GT(nContacts, 100);
}

TEST(PairMovedTogether, KeepsItsDistance) {
    support::CSeededRandom random(16);
    for (int i = 0; i < 300; ++i) {
        SPair pair = MakePair(random);
        const SContact here = Approach(pair.m_Moving, pair.m_Obstacle);
        const mgVector3 shift = {256, -512, 0};
        pair.m_Moving.m_ReferencePoint = pair.m_Moving.m_ReferencePoint + shift;
        pair.m_Obstacle.m_ReferencePoint = pair.m_Obstacle.m_ReferencePoint + shift;
        const SContact there = Approach(pair.m_Moving, pair.m_Obstacle);
        ASSERT_EQ(there.m_bFound, here.m_bFound);
        if (here.m_bFound) {
            ASSERT_NEAR(there.m_fDistance, here.m_fDistance, 1e-3);
            ASSERT_NEAR(there.m_fX, here.m_fX + 256, 1e-3);
        }
    }
}

}  // namespace

}  // namespace nestrix
