#include <gmock/gmock.h>

#include <limits>

#include "nest/PackFreely.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using support::Copies;
using support::PieceOf;
using support::RectangleRing;
using testing::HasSubstr;

constexpr SFreeStrip STRIP{50.0, 0.0, 0.0};

/// Why a piece is unfit; nothing for one that fits.
std::string ReasonOf(const SPiece& piece, const SFreeStrip& strip = STRIP) {
    const std::vector<SPiece> pieces{support::Box(10, 10), piece};
    const std::vector<SUnfitPiece> unfit = FindUnfitPieces(pieces, strip);
    if (unfit.empty()) {
        return "";
    }
    EXPECT_EQ(unfit.size(), 1U);
    EXPECT_EQ(unfit[0].m_nPiece, 1);
    return unfit[0].m_Reason;
}

SPiece AnyAngle(SPiece piece) {
    piece.m_Turns.m_bAny = true;
    return piece;
}

TEST(UnfitPieces, AreNoneAmongSoundOnes) {
    for (const SPiece& piece : support::MixedSet()) {
        EXPECT_EQ(ReasonOf(piece), "");
    }
}

TEST(UnfitPieces, AreThoseWithoutAnOutline) {
    EXPECT_THAT(ReasonOf(PieceOf({})), HasSubstr("no outline"));
}

TEST(UnfitPieces, AreThoseWithoutAnInside) {
    for (const CRing& ring : {CRing{{1, 1}}, CRing{{1, 1}, {5, 5}}, CRing{{0, 0}, {5, 5}, {9, 9}},
                              CRing{{0, 0}, {1e-9, 0}, {0, 1e-9}}}) {
        EXPECT_THAT(ReasonOf(PieceOf(ring)), HasSubstr("no inside"));
    }
}

TEST(UnfitPieces, AreThoseWhoseNumbersAreNotFinite) {
    for (const double number :
         {std::numeric_limits<double>::infinity(), std::numeric_limits<double>::quiet_NaN()}) {
        EXPECT_THAT(ReasonOf(PieceOf({{0, 0}, {5, 0}, {0, number}})), HasSubstr("not finite"));
        EXPECT_THAT(ReasonOf(PieceOf(RectangleRing(0, 0, 9, 9), {{{1, 1}, {2, number}, {1, 2}}})),
                    HasSubstr("not finite"));
        EXPECT_THAT(ReasonOf(Copies(support::Box(5, 5), 1, {0.0, number})), HasSubstr("not finite"));
    }
}

TEST(UnfitPieces, AreThoseThatCrossThemselves) {
    EXPECT_THAT(ReasonOf(PieceOf({{0, 0}, {9, 9}, {9, 0}, {0, 9}})), HasSubstr("crosses itself"));
    EXPECT_NE(ReasonOf(PieceOf({{0, 0}, {5, 5}, {10, 9}, {10, 0}, {5, 5}, {0, 10}})), "")
        << "at a corner of both";
}

TEST(UnfitPieces, AreThoseWithHolesOutside) {
    EXPECT_THAT(ReasonOf(PieceOf(RectangleRing(0, 0, 9, 9), {RectangleRing(20, 20, 3, 3)})),
                HasSubstr("hole"));
    EXPECT_NE(ReasonOf(PieceOf(RectangleRing(0, 0, 9, 9), {RectangleRing(6, 6, 5, 2)})), "");
    EXPECT_NE(ReasonOf(PieceOf({{0, 0}, {9, 0}, {9, 9}, {6, 9}, {5, 4}, {4, 9}, {0, 9}},
                               {{{4, 9}, {6, 9}, {5, 2}}})),
              "")
        << "across a bay, from corner to corner";
}

TEST(UnfitPieces, AreThoseWithHolesInHoles) {
    EXPECT_NE(ReasonOf(PieceOf(RectangleRing(0, 0, 20, 20),
                               {RectangleRing(3, 3, 12, 12), RectangleRing(5, 5, 4, 4)})),
              "");
    EXPECT_NE(ReasonOf(PieceOf(RectangleRing(0, 0, 20, 20),
                               {RectangleRing(3, 3, 6, 6), RectangleRing(3, 3, 6, 6)})),
              "");
}

TEST(UnfitPieces, AreNotThoseThatTouchThemselves) {
    EXPECT_EQ(ReasonOf(PieceOf({{0, 0}, {5, 5}, {10, 0}, {10, 10}, {5, 5}, {0, 10}})), "");
    EXPECT_EQ(ReasonOf(PieceOf(RectangleRing(0, 0, 9, 9), {{{0, 4}, {3, 3}, {3, 5}}})), "");
    EXPECT_EQ(ReasonOf(PieceOf({{0, 0}, {5, 0}, {5, 2}, {9, 2}, {5, 2}, {5, 5}, {0, 5}})), "");
}

TEST(UnfitPieces, AreThoseThatAreTooWide) {
    EXPECT_THAT(ReasonOf(support::Box(50.1, 10)), testing::AllOf(HasSubstr("50.1"), HasSubstr("50")));
    EXPECT_EQ(ReasonOf(support::Box(50, 10)), "");
    EXPECT_NE(ReasonOf(support::Box(50, 10), {50.0, 0.0, 1.0}), "");
    EXPECT_EQ(FindUnfitPieces(std::vector<SPiece>{support::Box(5, 10)}, {50.0, 0.0, 30.0}).size(), 1U);
}

TEST(UnfitPieces, AreNotThoseThatAreNarrowInOneOfTheirTurns) {
    EXPECT_THAT(ReasonOf(Copies(support::Box(60, 55), 1, {0.0, 90.0})), HasSubstr("narrowest"));
    EXPECT_EQ(ReasonOf(Copies(support::Box(60, 45), 1, {0.0, 90.0})), "");
    EXPECT_EQ(ReasonOf(AnyAngle(PieceOf({{0, 0}, {60, 60}, {30, 90}, {-30, 30}}))), "");
    EXPECT_NE(ReasonOf(AnyAngle(support::RegularPiece(12, 40.0))), "");
}

TEST(UnfitPieces, AreNotThoseThatAreNarrowWhenTheyAreMirrored) {
    // A bar that leans to the right by 45 degrees, in a turn that levels it; mirrored first, it stands up.
    SPiece piece = Copies(PieceOf({{0, 0}, {5, -5}, {45, 35}, {40, 40}}), 1, {-45.0});
    EXPECT_NE(ReasonOf(piece, {20.0, 0.0, 0.0}), "");
    piece.m_bMirrored = true;
    EXPECT_EQ(ReasonOf(piece, {20.0, 0.0, 0.0}), "");
}

TEST(UnfitPieces, AreThoseInNoTurnOrANegativeNumber) {
    EXPECT_THAT(ReasonOf(Copies(support::Box(5, 5), 1, {})), HasSubstr("no turn"));
    EXPECT_THAT(ReasonOf(Copies(support::Box(5, 5), -1)), HasSubstr("negative"));
}

TEST(UnfitPieces, AreThoseThatRoundingSpoilsInAllTheirTurns) {
    // The hole's corner lies on the outline's side; rounding puts it to one or the other side.
    SPiece piece = PieceOf(RectangleRing(0, 0, 20, 20), {{{0, 7.3}, {9, 5}, {9, 11}}});
    int nSpoilt = 0;
    for (int i = 1; i < 45; ++i) {
        piece.m_Turns.m_Degrees = {static_cast<double>(i)};
        nSpoilt += ReasonOf(piece).empty() ? 0 : 1;
    }
    EXPECT_GT(nSpoilt, 5);
    EXPECT_LT(nSpoilt, 40);
}

TEST(UnfitPieces, AreThoseTooLargeForTheGrid) {
    EXPECT_THAT(ReasonOf(support::Box(1e20, 1e20)), HasSubstr("too large"));
    EXPECT_THAT(ReasonOf(PieceOf(RectangleRing(0, 0, 9, 9), {RectangleRing(1e20, 0, 1, 1)})),
                HasSubstr("too large"));
}

TEST(UnfitPieces, AreAllNamed) {
    const std::vector<SPiece> pieces{support::Box(60, 1), support::Box(1, 1), support::Box(70, 1)};
    const std::vector<SUnfitPiece> unfit = FindUnfitPieces(pieces, STRIP);
    ASSERT_EQ(unfit.size(), 2U);
    EXPECT_EQ(unfit[0].m_nPiece, 0);
    EXPECT_EQ(unfit[1].m_nPiece, 2);
}

}  // namespace

}  // namespace nestrix
