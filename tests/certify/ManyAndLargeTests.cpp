#include <gmock/gmock.h>

#include <cmath>

#include "certify/Inside.h"
#include "certify/Spacing.h"
#include "tests/certify/ViolationMatchers.h"
#include "tests/support/FreePieces.h"
#include "tests/support/GridShapes.h"
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

/// So many teeth all around a circle, each half as long as it is wide.
SGridShape Gear(int nTeeth) {
    CGridRing ring;
    for (int i = 0; i < 2 * nTeeth; ++i) {
        const SDirection direction = DirectionOf(180.0 * i / nTeeth);
        const double radius = i % 2 == 0 ? 1e9 : 2e9;
        ring.push_back({std::llround(radius * direction.m_Cosine), std::llround(radius * direction.m_Sine)});
    }
    return {ring, {}};
}

TEST(LargeOutlines, WithTeethInAllDirectionsAreSoundUntilOneVertexPassesAnEdge) {
    SGridShape gear = Gear(support::RandomCases(50'000));
    EXPECT_TRUE(IsSound(gear));
    for (const size_t nTip : {gear.m_Outline.size() / 3 | 1, gear.m_Outline.size() / 7 | 1}) {
        SGridShape bent = gear;
        const SGridPoint next = gear.m_Outline[nTip + 2] - gear.m_Outline[nTip];
        SGridPoint& tip = bent.m_Outline[nTip];
        tip = tip + next + next;
        EXPECT_FALSE(IsSound(bent)) << nTip;
    }
}

TEST(LargeOutlines, WithTeethInAllDirectionsFitIntoTheirOwnHolesUntilTheyMoveByAUnit) {
    const SGridShape gear = Gear(support::RandomCases(5000));
    const SGridShape plate{{{-3'000'000'000, -3'000'000'000},
                            {3'000'000'000, -3'000'000'000},
                            {3'000'000'000, 3'000'000'000},
                            {-3'000'000'000, 3'000'000'000}},
                           {gear.m_Outline}};
    EXPECT_FALSE(DoInsidesOverlap(plate, gear));
    EXPECT_TRUE(DoInsidesOverlap(plate, support::Moved(gear, {1, 0})));
    EXPECT_TRUE(DoInsidesOverlap(plate, support::Moved(gear, {0, -1})));
}

/// Squares on their corners, each of which touches the next, in a row to the east or to the north: as one
/// outline that passes each corner between two of them twice.
SGridShape Chain(int nLinks, bool bNorth) {
    CGridRing ring;
    const auto add = [&](int64_t nAlong, int64_t nLeft) {
        ring.push_back(bNorth ? SGridPoint{-nLeft, nAlong} : SGridPoint{nAlong, nLeft});
    };
    for (int i = 0; i < nLinks; ++i) {
        add(20 * i, 0);
        add(20 * i + 10, -10);
    }
    for (int i = nLinks; i > 0; --i) {
        add(20 * i, 0);
        add(20 * i - 10, 10);
    }
    return {ring, {}};
}

// Where each link is compared with all others, these take minutes.

TEST(LargeOutlines, ThatTouchThemselvesEverywhereAreSoundUntilOneLinkLiesInTheNext) {
    const int nLinks = support::RandomCases(50'000);
    for (const bool bNorth : {false, true}) {
        SGridShape chain = Chain(nLinks, bNorth);
        EXPECT_TRUE(IsSound(chain));
        SGridPoint& corner = chain.m_Outline[static_cast<size_t>(nLinks / 2 * 2)];
        corner = corner + (bNorth ? SGridPoint{-1, 0} : SGridPoint{0, 1});
        EXPECT_FALSE(IsSound(chain));
    }
}

TEST(LargeOutlines, WithManyHolesThatTouchAreSoundUntilTwoOverlap) {
    const int nSide = static_cast<int>(std::sqrt(support::RandomCases(22'500)));
    SGridShape sieve{
        {{-50, -50}, {20 * nSide + 50, -50}, {20 * nSide + 50, 20 * nSide + 50}, {-50, 20 * nSide + 50}}, {}};
    for (int i = 0; i < nSide * nSide; ++i) {
        const int64_t nX = i % nSide * 20;
        const int64_t nY = i / nSide * 20;
        sieve.m_Holes.push_back({{nX, nY}, {nX + 10, nY + 10}, {nX, nY + 20}, {nX - 10, nY + 10}});
    }
    EXPECT_TRUE(IsSound(sieve));
    SGridPoint& corner = sieve.m_Holes[static_cast<size_t>(nSide * nSide / 3)][0];
    corner.m_nY -= 1;
    EXPECT_FALSE(IsSound(sieve));
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
