#include "nest/TurnsToTry.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>

#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using testing::ElementsAre;

const SGrid GRID{-5};
constexpr int64_t WIDE = 100'000'000;

STurnsToTry TurnsOf(const SPiece& piece, int64_t nRoom = WIDE, EBase eBase = EBase::LONGEST_SIDE) {
    return FindTurnsToTry(piece, false, GRID, nRoom, eBase);
}

SPiece AnyAngle(SPiece piece) {
    piece.m_Turns.m_bAny = true;
    return piece;
}

int64_t WidthOf(const SPiece& piece, double degrees) {
    const SGridShape laid = Laid(OnGrid(piece.m_Shape, GRID), degrees, false);
    const auto [left, right] =
        std::minmax_element(laid.m_Outline.begin(), laid.m_Outline.end(),
                            [](SGridPoint a, SGridPoint b) { return a.m_nX < b.m_nX; });
    return right->m_nX - left->m_nX;
}

TEST(TurnsToTry, AreTheListedOnesInOrderEachOnce) {
    const SPiece piece = support::Copies(support::Box(10, 20), 1, {270.0, 0.0, 33.25, 0.0, 90.0});
    const STurnsToTry turns = TurnsOf(piece);
    EXPECT_EQ(turns.m_Base, 0.0);
    EXPECT_THAT(turns.m_Steps, ElementsAre(0.0, 33.25, 90.0, 270.0));
}

TEST(TurnsToTry, AreFromNoneToAWholeTurn) {
    const SPiece piece = support::Copies(support::Box(10, 20), 1, {-90.0, 360.0, 450.0, -720.0});
    EXPECT_THAT(TurnsOf(piece).m_Steps, ElementsAre(0.0, 90.0, 270.0));
}

TEST(TurnsToTry, ThatAreListedStayAsTheyAre) {
    const double degrees = 33.123456789012345;
    const STurnsToTry turns = TurnsOf(support::Copies(support::Box(10, 20), 1, {degrees}));
    EXPECT_EQ(turns.DegreesOf(turns.m_Steps[0]), degrees);
}

TEST(TurnsToTry, OfAnyAngleLayTheLongestSideAlongTheFloor) {
    // A rectangle that was drawn askew: 3-4-5.
    const SPiece piece = AnyAngle(support::PieceOf({{0, 0}, {40, 30}, {34, 38}, {-6, 8}}));
    const STurnsToTry turns = TurnsOf(piece);
    const double degrees = turns.DegreesOf(turns.m_Steps[0]);
    EXPECT_NEAR(static_cast<double>(WidthOf(piece, degrees)) * 1e-5, 50.0, 1e-4);
    EXPECT_NEAR(static_cast<double>(WidthOf(piece, degrees + 90.0)) * 1e-5, 10.0, 1e-4);
}

TEST(TurnsToTry, OfAnyAngleAreCountedFromTheDrawingIfAskedFor) {
    const SPiece piece = AnyAngle(support::PieceOf({{0, 0}, {40, 30}, {34, 38}, {-6, 8}}));
    const STurnsToTry turns = TurnsOf(piece, WIDE, EBase::DRAWING);
    EXPECT_EQ(turns.DegreesOf(turns.m_Steps[0]), 0.0);
    EXPECT_EQ(turns.DegreesOf(turns.m_Steps[1]), 15.0);
}

TEST(TurnsToTry, OfAnyAngleAreCountedFromTheDrawingWhereHalfOfThePiecesAreDrawnAlongTheAxes) {
    const SPiece level = AnyAngle(support::RightTriangle(20, 15));
    const SPiece askew = AnyAngle(support::PieceOf({{0, 0}, {40, 30}, {34, 38}, {-6, 8}}));
    const SPiece stub = AnyAngle(support::PieceOf({{0, 0}, {5, 0}, {40, 30}, {-6, 8}}));
    const SPiece fixed = support::Box(10, 20);
    EXPECT_EQ(FindBase(std::vector{level, askew}, GRID), EBase::DRAWING);
    EXPECT_EQ(FindBase(std::vector{level, askew, stub}, GRID), EBase::LONGEST_SIDE);
    EXPECT_EQ(FindBase(std::vector{fixed, askew}, GRID), EBase::LONGEST_SIDE);
}

TEST(TurnsToTry, OfAnyAngleAreSpreadEvenlyAndWrittenInMillionthsOfADegree) {
    const STurnsToTry turns = TurnsOf(AnyAngle(support::RightTriangle(20, 15)));
    ASSERT_GE(turns.m_Steps.size(), 4U);
    for (size_t i = 0; i < turns.m_Steps.size(); ++i) {
        EXPECT_DOUBLE_EQ(turns.m_Steps[i],
                         360.0 * static_cast<double>(i) / static_cast<double>(turns.m_Steps.size()));
        const double degrees = turns.DegreesOf(turns.m_Steps[i]);
        EXPECT_EQ(degrees, std::round(degrees * 1e6) / 1e6);
        EXPECT_GE(degrees, 0.0);
        EXPECT_LT(degrees, 360.0);
    }
}

TEST(TurnsToTry, OfAnyAngleHaveOneThatFitsAStripThatIsJustWideEnough) {
    const SPiece piece = AnyAngle(support::PieceOf({{0, 0}, {40, 3}, {80, 0}, {80, 10}, {0, 10}}));
    // Its height, and what rounding a turn takes.
    const int64_t nRoom = 1'000'000 + 10;
    const STurnsToTry turns = TurnsOf(piece, nRoom);
    const auto fits = [&](double step) { return WidthOf(piece, turns.DegreesOf(step)) <= nRoom; };
    EXPECT_TRUE(std::any_of(turns.m_Steps.begin(), turns.m_Steps.end(), fits));
}

}  // namespace

}  // namespace nestrix
