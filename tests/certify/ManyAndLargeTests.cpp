#include <gmock/gmock.h>

#include <cmath>

#include "certify/Inside.h"
#include "certify/Spacing.h"
#include "tests/certify/ViolationMatchers.h"
#include "tests/support/FreePieces.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Sets of one size or another, and outlines with few vertices and with thousands.

namespace {

using EKind = SViolation::EKind;
using support::IsViolation;
using support::PieceOf;
using support::ViolationsOf;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Certificate, OfAThousandEqualSquaresInRowsHoldsUntilOneMovesByAUnit) {
    std::vector<SPiece> pieces{PieceOf(support::RectangleRing(0, 0, 10, 10))};
    pieces[0].m_nQuantity = 1000;
    SFreePacking packing{{400.0, 0.0, 0.0}, {}, {}, 250};
    for (int i = 0; i < 1000; ++i) {
        packing.m_Placed.push_back({0, false, 0.0, {i % 40 * 10, i / 40 * 10}});
    }
    EXPECT_THAT(ViolationsOf(pieces, packing), IsEmpty());
    ++packing.m_Placed[500].m_At.m_nX;
    EXPECT_THAT(ViolationsOf(pieces, packing), ElementsAre(IsViolation(EKind::OVERLAP, 500, 501)));
}

TEST(Certificate, OfTrianglesThatFillASquareHolds) {
    std::vector<SPiece> pieces{PieceOf({{0, 0}, {10, 0}, {0, 10}})};
    pieces[0].m_nQuantity = 2;
    pieces[0].m_Turns.m_Degrees = {0.0, 180.0};
    SFreePacking packing{{10.0, 0.0, 0.0}, {}, {{0, false, 0.0, {0, 0}}, {0, false, 180.0, {10, 10}}}, 10};
    EXPECT_THAT(ViolationsOf(pieces, packing), IsEmpty());
    packing.m_Placed[1].m_At.m_nY = 9;
    EXPECT_THAT(ViolationsOf(pieces, packing),
                ElementsAre(IsViolation(EKind::STRIP, 1, -1), IsViolation(EKind::OVERLAP, 0, 1)));
}

TEST(Certificate, OfOutlinesOfFiveThousandVerticesHoldsUntilOneMovesByAUnit) {
    // One that fits exactly into the other's hole: all vertices touch.
    const SPiece disc = support::RegularPiece(5000, 100.0);
    std::vector<SPiece> pieces{
        PieceOf(support::RectangleRing(-120, -120, 240, 240), {disc.m_Shape.m_Outline}), disc};
    const SGrid grid{-3};
    SFreePacking packing{
        {400.0, 0.0, 0.0}, grid, {{0, false, 0.0, {0, 0}}, {1, false, 0.0, {20000, 20000}}}, 240000};
    EXPECT_THAT(ViolationsOf(pieces, packing), IsEmpty());
    ++packing.m_Placed[1].m_At.m_nX;
    EXPECT_THAT(ViolationsOf(pieces, packing), ElementsAre(IsViolation(EKind::OVERLAP, 0, 1)));
}

/// So many teeth, each 450 wide, 550 apart and as long as the whole is wide, at an angle.
SGridShape Comb(int nTeeth, double degrees) {
    const SDirection direction = DirectionOf(degrees);
    CGridRing ring;
    const auto add = [&](double along, double up) {
        ring.push_back({std::llround(along * direction.m_Cosine - up * direction.m_Sine),
                        std::llround(along * direction.m_Sine + up * direction.m_Cosine)});
    };
    const double length = 1000.0 * nTeeth;
    add(0.0, -1000.0);
    add(length, -1000.0);
    for (int i = nTeeth - 1; i >= 0; --i) {
        add(1000.0 * i + 450.0, 0.0);
        add(1000.0 * i + 450.0, length);
        add(1000.0 * i, length);
        add(1000.0 * i, 0.0);
    }
    return {ring, {}};
}

/// By so much along the comb's width.
SGridPoint Aside(double length, double degrees) {
    const SDirection direction = DirectionOf(degrees);
    return {std::llround(length * direction.m_Cosine), std::llround(length * direction.m_Sine)};
}

// Where all edges whose boxes meet are compared, these take minutes.

TEST(LargeOutlines, AreSoundUntilOneVertexPassesAnEdge) {
    const int nTeeth = support::RandomCases(30'000);
    for (const double degrees : {0.0, 30.0, 45.0, 101.0}) {
        SGridShape comb = Comb(nTeeth, degrees);
        EXPECT_TRUE(IsSound(comb)) << degrees;
        SGridPoint& corner = comb.m_Outline[static_cast<size_t>(2 + nTeeth / 2 * 4 + 1)];
        const SGridPoint aside = Aside(540.0, degrees);
        corner = corner + aside;
        EXPECT_TRUE(IsSound(comb)) << degrees << ", beside the next tooth";
        corner = corner + aside;
        EXPECT_FALSE(IsSound(comb)) << degrees << ", in it";
    }
}

TEST(LargeOutlines, FitIntoEachOtherUntilTheirTeethMeet) {
    const int nTeeth = support::RandomCases(15'000);
    for (const double degrees : {0.0, 30.0, 45.0, 101.0}) {
        const SGridShape comb = Comb(nTeeth, degrees);
        const certify::SBorder border = certify::BorderOf(comb);
        // Turned by a half, its teeth come between the others, and 50 units are left on either side.
        const SDirection direction = DirectionOf(degrees);
        const double up = 1100.0 * nTeeth;
        const SGridPoint sum =
            Aside(1000.0 * nTeeth - 50.0, degrees) +
            SGridPoint{std::llround(-up * direction.m_Sine), std::llround(up * direction.m_Cosine)};
        const auto borderAt = [&](double aside) {
            SGridShape turned = comb;
            for (SGridPoint& point : turned.m_Outline) {
                point = sum + Aside(aside, degrees) - point;
            }
            return certify::BorderOf(turned);
        };
        EXPECT_FALSE(certify::Overlap(border, borderAt(0.0))) << degrees;
        EXPECT_FALSE(certify::AreNearer(border, borderAt(0.0), 48)) << degrees;
        EXPECT_TRUE(certify::AreNearer(border, borderAt(0.0), 52)) << degrees;
        EXPECT_FALSE(certify::Overlap(border, borderAt(48.0))) << degrees;
        EXPECT_TRUE(certify::Overlap(border, borderAt(52.0))) << degrees;
    }
}

TEST(Certificate, OfPiecesAtAnyAngleIsThatOfTheCoordinatesThatAreWrittenOut) {
    std::vector<SPiece> pieces{PieceOf(support::RectangleRing(0, 0, 30, 10))};
    pieces[0].m_nQuantity = 2;
    pieces[0].m_Turns.m_bAny = true;
    SFreePacking packing{{400.0, 0.0, 0.0}, GridFor(400.0), {}, 0};
    const double degrees = 33.7;
    const SDirection direction = DirectionOf(degrees);
    // Shifted along its short side, less or more than rounding can spoil.
    for (const double shift : {10.00002, 9.99998}) {
        const int64_t nX = packing.m_Grid.Count(50.0 - shift * direction.m_Sine);
        packing.m_Placed = {{0, false, degrees, {packing.m_Grid.Count(50.0), 0}},
                            {0, false, degrees, {nX, packing.m_Grid.Count(shift * direction.m_Cosine)}}};
        packing.m_nHeight = HeightOf(PlacedShapes(pieces, packing));
        EXPECT_EQ(Certify(pieces, packing).IsValid(), shift > 10.0) << shift;
    }
}

}  // namespace

}  // namespace nestrix
