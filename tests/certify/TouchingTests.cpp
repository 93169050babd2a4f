#include <gmock/gmock.h>

#include "tests/certify/ViolationMatchers.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

// What may touch, what fits exactly, and that one unit of the grid more is refused.

namespace {

using EKind = SViolation::EKind;
using support::IsViolation;
using support::PackingAt;
using support::PieceOf;
using support::RectangleRing;
using support::ViolationsOf;
using testing::ElementsAre;
using testing::IsEmpty;

const SFreeStrip WIDE{400.0, 0.0, 0.0};

std::vector<SPiece> Squares(size_t nCount, double side) {
    return std::vector<SPiece>(nCount, PieceOf(RectangleRing(0, 0, side, side)));
}

TEST(Touching, SquaresMayTouchAlongTheirSides) {
    EXPECT_THAT(ViolationsOf(Squares(2, 10), PackingAt(WIDE, Squares(2, 10), {{0, 0}, {10, 3}})), IsEmpty());
}

TEST(Touching, SquaresMayTouchAtACorner) {
    EXPECT_THAT(ViolationsOf(Squares(2, 10), PackingAt(WIDE, Squares(2, 10), {{0, 0}, {10, 10}})), IsEmpty());
}

TEST(Touching, ASquareMovedByOneUnitIntoAnotherIsRefused) {
    const auto violations = ViolationsOf(Squares(2, 10), PackingAt(WIDE, Squares(2, 10), {{0, 0}, {9, 3}}));
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, 1.0);
}

TEST(Touching, ATipMovedByOneUnitIntoASlopeIsRefused) {
    const std::vector<SPiece> pieces{PieceOf({{0, 0}, {30, 0}, {0, 20}}),
                                     PieceOf({{0, 0}, {9, 20}, {-9, 20}})};
    // The tip of the second lies 9 to the right of its box's corner; 15, 10 is on the first one's slope.
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {15 - 9, 10}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {15 - 9, 9}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Touching, FourSquaresStandInARowInAStripOfExactlyFourSides) {
    const SFreeStrip strip{40.0, 0.0, 0.0};
    const auto pieces = Squares(4, 10);
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(strip, pieces, {{0, 0}, {10, 0}, {20, 0}, {30, 0}})),
                IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(strip, pieces, {{0, 0}, {10, 0}, {20, 0}, {31, 0}})),
                ElementsAre(IsViolation(EKind::STRIP, 3, -1)));
}

TEST(Touching, APieceMayBeAsWideAsTheStrip) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(5, 5, 400, 7))};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}})), IsEmpty());
}

TEST(Touching, ASquareFitsIntoAHoleOfItsSize) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 30, 30), {RectangleRing(10, 10, 10, 10)}),
                                     PieceOf(RectangleRing(0, 0, 10, 10))};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {10, 10}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {10, 11}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Touching, ATriangleFitsIntoAHoleOfItsSizeHoweverItsBorderIsWalked) {
    const CRing triangle{{0, 0}, {17, 3}, {5, 11}};
    const CRing hole{{10, 10}, {27, 13}, {15, 21}};
    const CRing reversed{hole.rbegin(), hole.rend()};
    for (const CRing& walked : {hole, reversed}) {
        const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 30, 30), {walked}), PieceOf(triangle)};
        EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {10, 10}})), IsEmpty());
        EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {9, 10}})),
                    ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    }
}

TEST(Touching, APieceOnTopOfItsLikeIsRefused) {
    const auto violations = ViolationsOf(Squares(2, 10), PackingAt(WIDE, Squares(2, 10), {{4, 0}, {4, 0}}));
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, 5.0);
}

TEST(Touching, APieceWithinTheSolidOfAnotherIsRefused) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 30, 30)),
                                     PieceOf(RectangleRing(0, 0, 4, 4))};
    const auto violations = ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {10, 10}}));
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, 14.0);
}

TEST(Touching, BarsAcrossEachOtherAreRefused) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 30, 4)),
                                     PieceOf(RectangleRing(0, 0, 4, 30))};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 13}, {13, 0}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Touching, PiecesWhoseSidesMeetInCornersOnlyAreRefusedWhenTheirInsidesOverlap) {
    // Every corner of the one lies on a side of the other, and no sides cross between their ends.
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 20, 20)),
                                     PieceOf({{10, 0}, {20, 10}, {10, 20}, {0, 10}})};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {0, 0}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Touching, PiecesMayLieInEachOthersPinches) {
    // Two triangles each, which touch where one's tip is on the other's side: four tips at one point.
    const std::vector<SPiece> pieces{PieceOf({{0, 0}, {12, 0}, {12, 9}, {9, 9}, {12, 3}}),
                                     PieceOf({{3, 9}, {0, 0}, {12, 0}, {12, 9}, {9, 0}})};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {3, 3}})), IsEmpty());
    for (const int64_t nY : {2, 4}) {
        EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {3, nY}})),
                    ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    }
}

TEST(Touching, ACutFromTheOutlineToAHoleIsNoBorder) {
    const std::vector<SPiece> pieces{PieceOf({{0, 0},
                                              {30, 0},
                                              {30, 30},
                                              {0, 30},
                                              {0, 15},
                                              {10, 15},
                                              {10, 20},
                                              {20, 20},
                                              {20, 10},
                                              {10, 10},
                                              {10, 15},
                                              {0, 15}}),
                                     PieceOf(RectangleRing(0, 0, 10, 10))};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {10, 10}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {9, 10}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {0, 10}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)))
        << "across the cut";
}

TEST(Touching, ASpikeWithoutAWidthTakesNoPlace) {
    const std::vector<SPiece> pieces{PieceOf({{0, 0}, {10, 0}, {10, 5}, {25, 5}, {10, 5}, {10, 10}, {0, 10}}),
                                     PieceOf(RectangleRing(0, 0, 10, 10))};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {12, 0}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {12, 5}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {9, 5}})),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Touching, AHoleOnTheOutlineIsABay) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 30, 30), {RectangleRing(10, 20, 10, 10)}),
                                     PieceOf(RectangleRing(0, 0, 10, 30))};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(WIDE, pieces, {{0, 0}, {10, 20}})), IsEmpty());
}

}  // namespace

}  // namespace nestrix
