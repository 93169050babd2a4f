#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <limits>

#include "certify/Spacing.h"
#include "tests/certify/ViolationMatchers.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

// Spacing, margin, height, quantities, turns and shapes.

namespace {

using EKind = SViolation::EKind;
using support::IsViolation;
using support::PackingAt;
using support::PieceOf;
using support::RectangleRing;
using support::ViolationsOf;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

const std::vector<SPiece> TWO_SQUARES(2, PieceOf(RectangleRing(0, 0, 10, 10)));

std::vector<SViolation> OfTwoSquares(const SFreeStrip& strip, SGridPoint first, SGridPoint second) {
    return ViolationsOf(TWO_SQUARES, PackingAt(strip, TWO_SQUARES, {first, second}));
}

TEST(Spacing, MayBeShortByOneUnitOfTheGridAndNoMore) {
    const SFreeStrip strip{400.0, 5.0, 0.0};
    EXPECT_THAT(OfTwoSquares(strip, {0, 0}, {15, 0}), IsEmpty());
    EXPECT_THAT(OfTwoSquares(strip, {0, 0}, {14, 0}), IsEmpty());
    const auto violations = OfTwoSquares(strip, {0, 0}, {13, 0});
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::SPACING, 0, 1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, 2.0);
}

TEST(Spacing, IsMeasuredBetweenCornersWithoutRounding) {
    const SFreeStrip strip{400.0, 6.0, 0.0};
    EXPECT_THAT(OfTwoSquares(strip, {0, 0}, {13, 14}), IsEmpty()) << "3, 4 apart: 5 exactly";
    EXPECT_THAT(OfTwoSquares(strip, {0, 0}, {13, 13}), ElementsAre(IsViolation(EKind::SPACING, 0, 1)));
}

TEST(Spacing, OfLengthsBeyondDoublePrecisionIsExact) {
    const int64_t nFar = 30000000000;
    const std::vector<SPiece> pieces{PieceOf({{0, 0}, {4.0 * nFar, 3.0 * nFar}, {0, 3.0 * nFar}}),
                                     PieceOf({{0, 0}, {4.0 * nFar, 0}, {4.0 * nFar, 3.0 * nFar}})};
    // The slopes, of direction 4, 3, are 3/5 of the horizontal distance apart.
    const SFreeStrip strip{20.0 * nFar, 3001.0, 0.0};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(strip, pieces, {{0, 0}, {5000, 0}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(strip, pieces, {{0, 0}, {4999, 0}})),
                ElementsAre(IsViolation(EKind::SPACING, 0, 1)));
}

TEST(Spacing, IsComparedByWholeNumbersWhereDoublesTie) {
    // The slope's coordinates have no common divisor, so that there are points for every product with it: for
    // the last whole number below its length times the distance, and for the first one above.
    const SGridPoint slope{999999999989, 1234567890133};
    const int64_t nDistance = 1000003;
    const certify::SBorder below = certify::BorderOf({{{0, 0}, {slope.m_nX, 0}, slope}, {}});
    const auto isNearer = [&](SGridPoint tip) {
        const SGridShape above{{tip, tip + SGridPoint{0, 2}, tip + SGridPoint{-2, 2}}, {}};
        return certify::AreNearer(below, certify::BorderOf(above), nDistance);
    };
    EXPECT_TRUE(isNearer({44117687088, 54467868631}));
    EXPECT_FALSE(isNearer({293310729940, 362113597784}));
}

TEST(Spacing, OfATouchIsMissingAltogether) {
    const auto violations = OfTwoSquares({400.0, 5.0, 0.0}, {0, 0}, {10, 4});
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::SPACING, 0, 1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, 5.0);
}

TEST(Spacing, OfOneUnitLetsPiecesTouchButNotOverlap) {
    EXPECT_THAT(OfTwoSquares({400.0, 1.0, 0.0}, {0, 0}, {10, 0}), IsEmpty());
    EXPECT_THAT(OfTwoSquares({400.0, 1.0, 0.0}, {0, 0}, {9, 0}),
                ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Spacing, IsKeptToTheBorderOfAHole) {
    const std::vector<SPiece> pieces{PieceOf(RectangleRing(0, 0, 40, 40), {RectangleRing(10, 10, 20, 20)}),
                                     PieceOf(RectangleRing(0, 0, 10, 10))};
    const SFreeStrip strip{400.0, 6.0, 0.0};
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(strip, pieces, {{0, 0}, {15, 15}})), IsEmpty());
    EXPECT_THAT(ViolationsOf(pieces, PackingAt(strip, pieces, {{0, 0}, {16, 15}})),
                ElementsAre(IsViolation(EKind::SPACING, 0, 1)));
}

TEST(Margin, IsKeptToBothWallsAndTheFloor) {
    const SFreeStrip strip{100.0, 0.0, 7.0};
    EXPECT_THAT(OfTwoSquares(strip, {7, 7}, {83, 7}), IsEmpty());
    EXPECT_THAT(OfTwoSquares(strip, {6, 7}, {83, 7}), ElementsAre(IsViolation(EKind::STRIP, 0, -1)));
    EXPECT_THAT(OfTwoSquares(strip, {7, 7}, {84, 7}), ElementsAre(IsViolation(EKind::STRIP, 1, -1)));
    const auto violations = OfTwoSquares(strip, {7, 7}, {83, 5});
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::STRIP, 1, -1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, 2.0);
}

TEST(Height, IsThatOfTheHighestPoint) {
    SFreePacking packing = PackingAt({}, TWO_SQUARES, {{0, 0}, {10, 5}});
    EXPECT_EQ(packing.m_nHeight, 15);
    EXPECT_THAT(ViolationsOf(TWO_SQUARES, packing), IsEmpty());
    packing.m_nHeight = 14;
    const auto violations = ViolationsOf(TWO_SQUARES, packing);
    ASSERT_THAT(violations, ElementsAre(IsViolation(EKind::HEIGHT, -1, -1)));
    EXPECT_DOUBLE_EQ(violations[0].m_Amount, -1.0);
    packing.m_nHeight = 16;
    EXPECT_DOUBLE_EQ(ViolationsOf(TWO_SQUARES, packing).at(0).m_Amount, 1.0);
}

TEST(Height, OfNothingIsZero) {
    EXPECT_THAT(ViolationsOf({}, {}), IsEmpty());
    SFreePacking packing;
    packing.m_nHeight = 1;
    EXPECT_THAT(ViolationsOf({}, packing), ElementsAre(IsViolation(EKind::HEIGHT, -1, -1)));
}

TEST(Quantity, IsMetExactly) {
    std::vector<SPiece> pieces = TWO_SQUARES;
    const SFreePacking packing = PackingAt({}, pieces, {{0, 0}, {10, 0}});
    pieces[0].m_nQuantity = 3;
    pieces[1].m_nQuantity = 0;
    const auto violations = ViolationsOf(pieces, packing);
    ASSERT_THAT(violations,
                ElementsAre(IsViolation(EKind::QUANTITY, 0, -1), IsViolation(EKind::QUANTITY, 1, -1)));
    EXPECT_EQ(violations[0].m_Amount, 2.0);
    EXPECT_EQ(violations[1].m_Amount, -1.0);
}

TEST(Piece, ThatIsNotInTheSetIsUnknown) {
    SFreePacking packing = PackingAt({}, TWO_SQUARES, {{0, 0}, {10, 0}});
    for (const int nUnknown : {2, -1, std::numeric_limits<int>::min(), std::numeric_limits<int>::max()}) {
        packing.m_Placed[1].m_nPiece = nUnknown;
        EXPECT_THAT(ViolationsOf(TWO_SQUARES, packing),
                    UnorderedElementsAre(IsViolation(EKind::UNKNOWN_PIECE, 1, -1),
                                         IsViolation(EKind::QUANTITY, 1, -1)));
    }
}

bool IsAllowed(const STurns& turns, double degrees) {
    std::vector<SPiece> pieces{TWO_SQUARES[0]};
    pieces[0].m_Turns = turns;
    SFreePacking packing = PackingAt({}, pieces, {{100, 100}});
    packing.m_Placed[0].m_Degrees = degrees;
    const auto violations = ViolationsOf(pieces, packing);
    return std::none_of(violations.begin(), violations.end(),
                        [](const SViolation& violation) { return violation.m_eKind == EKind::TURN; });
}

TEST(Turn, IsComparedModuloAWholeTurnAndExactly) {
    const STurns turns{false, {0.0, 90.0, 180.0, 300.0}};
    for (const double degrees : {0.0, 90.0, 180.0, 300.0, -180.0, -270.0, -60.0, 360.0, 36090.0, -0.0}) {
        EXPECT_TRUE(IsAllowed(turns, degrees)) << degrees;
    }
    for (const double degrees :
         {270.0, 1e-300, std::nextafter(90.0, 91.0), std::nextafter(-60.0, 0.0), 60.0}) {
        EXPECT_FALSE(IsAllowed(turns, degrees)) << degrees;
    }
}

TEST(Turn, MayBeAnyFiniteAngleWhereAnyIsAllowed) {
    for (const double degrees : {0.0, 12.345, -1e9, 1e300}) {
        EXPECT_TRUE(IsAllowed({true, {}}, degrees)) << degrees;
    }
    for (const double degrees : {std::numeric_limits<double>::infinity(), std::nan("")}) {
        EXPECT_FALSE(IsAllowed({true, {}}, degrees)) << degrees;
        EXPECT_FALSE(IsAllowed({false, {degrees}}, degrees)) << degrees;
    }
}

TEST(Turn, IncludesTheMirroring) {
    std::vector<SPiece> pieces{TWO_SQUARES[0]};
    SFreePacking packing = PackingAt({}, pieces, {{10, 0}});
    packing.m_Placed[0].m_bMirrored = true;
    EXPECT_THAT(ViolationsOf(pieces, packing), ElementsAre(IsViolation(EKind::TURN, 0, -1)));
    pieces[0].m_bMirrored = true;
    EXPECT_THAT(ViolationsOf(pieces, packing), IsEmpty());
}

TEST(Turn, PutsThePieceWhereItIsLaid) {
    std::vector<SPiece> pieces(2, PieceOf(RectangleRing(0, 0, 20, 10)));
    pieces[1].m_Turns = {false, {90.0}};
    SFreePacking packing = PackingAt({}, pieces, {{0, 0}, {30, 0}});
    packing.m_Placed[1].m_Degrees = 90.0;
    packing.m_nHeight = 20;
    EXPECT_THAT(ViolationsOf(pieces, packing), IsEmpty());
    packing.m_Placed[1].m_At.m_nX = 29;
    EXPECT_THAT(ViolationsOf(pieces, packing), ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

std::vector<SViolation> OfShape(const SPiece& piece) {
    return ViolationsOf({piece}, PackingAt({}, std::vector{piece}, {{100, 100}}));
}

TEST(Shape, MayRepeatVerticesHaveThemOnItsSidesAndBeWalkedClockwise) {
    EXPECT_THAT(
        OfShape(PieceOf({{0, 0}, {0, 0}, {5, 0}, {10, 0}, {10, 0}, {10, 10}, {10, 10}, {4, 10}, {0, 10}})),
        IsEmpty());
    EXPECT_THAT(OfShape(PieceOf({{0, 0}, {0, 10}, {10, 10}, {10, 0}})), IsEmpty());
}

TEST(Shape, MayTouchItself) {
    EXPECT_THAT(OfShape(PieceOf({{0, 0}, {20, 0}, {20, 20}, {10, 0}, {0, 20}})), IsEmpty());
    EXPECT_THAT(
        OfShape(PieceOf({{0, 0}, {10, 0}, {10, 10}, {20, 10}, {20, 20}, {10, 20}, {10, 10}, {0, 10}})),
        IsEmpty());
}

TEST(Shape, ThatCrossesItselfIsRefused) {
    const SPiece crossed = PieceOf({{0, 0}, {20, 20}, {20, 0}, {0, 20}});
    const SPiece crossedInAVertex = PieceOf({{0, 0}, {10, 10}, {20, 20}, {20, 0}, {10, 10}, {0, 20}});
    const SPiece twiceRound = PieceOf({{0, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}, {9, 0}, {9, 9}, {0, 9}});
    for (const SPiece& piece : {crossed, crossedInAVertex, twiceRound}) {
        EXPECT_THAT(OfShape(piece), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
    }
}

TEST(Shape, WithoutAnInsideIsRefused) {
    for (const CRing& ring : {CRing{}, CRing{{1, 1}}, CRing{{0, 0}, {9, 9}}, CRing{{0, 0}, {5, 5}, {9, 9}},
                              CRing{{0, 0}, {0.1, 0}, {0, 0.1}}}) {
        EXPECT_THAT(OfShape(PieceOf(ring)), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
    }
}

TEST(Shape, WithHolesThatLeaveItsOutlineOrOverlapIsRefused) {
    const CRing outline = RectangleRing(0, 0, 30, 30);
    const auto refused = [](const SPiece& piece) {
        EXPECT_THAT(OfShape(piece), ElementsAre(IsViolation(EKind::SHAPE, 0, -1)));
    };
    refused(PieceOf(outline, {RectangleRing(20, 20, 20, 5)}));
    refused(PieceOf(outline, {RectangleRing(40, 40, 5, 5)}));
    refused(PieceOf(outline, {RectangleRing(5, 5, 9, 9), RectangleRing(10, 10, 9, 9)}));
    refused(PieceOf(outline, {RectangleRing(5, 5, 9, 9), RectangleRing(7, 7, 3, 3)}));
    refused(PieceOf(outline, {outline}));
    EXPECT_THAT(OfShape(PieceOf(outline, {RectangleRing(5, 5, 5, 5), RectangleRing(10, 5, 5, 5)})),
                IsEmpty());
}

}  // namespace

}  // namespace nestrix
