#include <gmock/gmock.h>

#include "tests/certify/ViolationMatchers.h"
#include "tests/support/FreePieces.h"

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
