#include "nest/CPackProblem.h"

#include <gtest/gtest.h>

#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using support::Copies;

constexpr SFreeStrip STRIP{100.0, 0.0, 0.0};
const std::vector<double> QUARTERS{0.0, 90.0, 180.0, 270.0};

std::vector<double> TurnsOf(const CPackProblem& problem, size_t nPiece) {
    std::vector<double> turns;
    for (const size_t nVersion : problem.VersionsOf(nPiece)) {
        turns.push_back(problem.Versions()[nVersion].m_Degrees);
    }
    return turns;
}

TEST(PackProblem, TakesTurnsThatLookTheSameOnce) {
    const std::vector<SPiece> pieces{
        Copies(support::Box(10, 10), 1, QUARTERS), Copies(support::Box(10, 20), 1, QUARTERS),
        Copies(support::LetterL(30), 1, QUARTERS), Copies(support::Frame(20, 8), 1, QUARTERS)};
    const CPackProblem problem(pieces, STRIP, true);
    EXPECT_EQ(TurnsOf(problem, 0), (std::vector<double>{0.0}));
    EXPECT_EQ(TurnsOf(problem, 1), (std::vector<double>{0.0, 90.0}));
    EXPECT_EQ(TurnsOf(problem, 2), QUARTERS);
    EXPECT_EQ(TurnsOf(problem, 3), (std::vector<double>{0.0}));
}

TEST(PackProblem, TellsTurnsApartThatDifferInAHoleOnly) {
    const SPiece piece =
        support::PieceOf(support::RectangleRing(0, 0, 20, 20), {support::RectangleRing(2, 2, 5, 5)});
    const std::vector<SPiece> pieces{Copies(piece, 1, QUARTERS)};
    EXPECT_EQ(TurnsOf(CPackProblem(pieces, STRIP, true), 0), QUARTERS);
    EXPECT_EQ(TurnsOf(CPackProblem(pieces, STRIP, false), 0), (std::vector<double>{0.0}));
}

TEST(PackProblem, LeavesOutTurnsThatDoNotFitTheStrip) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 60), 1, QUARTERS)};
    EXPECT_EQ(TurnsOf(CPackProblem(pieces, {50.0, 0.0, 0.0}, true), 0), (std::vector<double>{0.0}));
    EXPECT_EQ(TurnsOf(CPackProblem(pieces, {60.0, 0.0, 0.0}, true), 0), (std::vector<double>{0.0, 90.0}));
    EXPECT_EQ(TurnsOf(CPackProblem(pieces, {60.0, 0.0, 0.1}, true), 0), (std::vector<double>{0.0}));
}

TEST(PackProblem, LetsEqualPiecesShareAFigure) {
    std::vector<SPiece> pieces{support::LetterL(30), support::LetterL(30), support::LetterL(27)};
    pieces[1].m_Name = "another name";
    for (SPoint& point : pieces[1].m_Shape.m_Outline) {
        point = {point.m_X + 17.0, point.m_Y - 3.0};
    }
    const CPackProblem problem(pieces, STRIP, true);
    EXPECT_EQ(problem.Figures().size(), 2U);
}

TEST(PackProblem, LaysAPieceMirroredWhereThatIsAllowed) {
    std::vector<SPiece> pieces{Copies(support::RightTriangle(20, 10), 1, QUARTERS), support::Box(10, 20)};
    pieces[0].m_bMirrored = true;
    pieces[1].m_bMirrored = true;
    const CPackProblem problem(pieces, STRIP, true);
    EXPECT_EQ(problem.VersionsOf(0).size(), 8U);
    EXPECT_EQ(problem.VersionsOf(1).size(), 1U) << "a box is its own mirror image";
    EXPECT_TRUE(problem.FindVersion(0, 90.0, true));
    EXPECT_FALSE(problem.FindVersion(1, 0.0, true));
}

TEST(PackProblem, HasAnItemForEachCopy) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 2), Copies(support::Box(5, 5), 0),
                                     Copies(support::Box(7, 7), 3)};
    const CPackProblem problem(pieces, STRIP, true);
    EXPECT_EQ(problem.Items(), (std::vector<size_t>{0, 0, 2, 2, 2}));
    const double unit = problem.Grid().Length(1);
    EXPECT_DOUBLE_EQ(problem.TotalArea() * unit * unit, 2 * 100 + 3 * 49);
}

TEST(PackProblem, TriesTheTurnsOfAnEarlierPackingWhereAnyIsAllowed) {
    std::vector<SPiece> pieces{support::LetterL(30), Copies(support::LetterL(21), 1, QUARTERS)};
    pieces[0].m_Turns.m_bAny = true;
    const SFreePacking earlier{
        STRIP, GridFor(STRIP.m_Width), {{0, false, 33.25, {}}, {1, false, 33.25, {}}}, 0};
    EXPECT_FALSE(CPackProblem(pieces, STRIP, true).FindVersion(0, 33.25, false));
    const CPackProblem problem(pieces, STRIP, true, &earlier);
    EXPECT_TRUE(problem.FindVersion(0, 33.25, false));
    EXPECT_FALSE(problem.FindVersion(1, 33.25, false));
}

TEST(PackProblem, KnowsATurnHoweverItIsWritten) {
    const std::vector<SPiece> pieces{Copies(support::LetterL(30), 1, {-90.0, 450.0})};
    const CPackProblem problem(pieces, STRIP, true);
    EXPECT_TRUE(problem.FindVersion(0, 270.0, false));
    EXPECT_TRUE(problem.FindVersion(0, -450.0, false));
    EXPECT_EQ(problem.FindVersion(0, 90.0, false), problem.FindVersion(0, -270.0, false));
    EXPECT_FALSE(problem.FindVersion(0, 180.0, false));
}

TEST(PackProblem, LeavesOutTurnsInWhichRoundingSpoilsTheShape) {
    // The hole's corner lies on the outline's side; rounding puts it to one or the other side.
    std::vector<SPiece> pieces{
        support::PieceOf(support::RectangleRing(0, 0, 20, 20), {{{0, 7.3}, {9, 5}, {9, 11}}})};
    pieces[0].m_Turns.m_Degrees.clear();
    for (int i = 0; i < 180; ++i) {
        pieces[0].m_Turns.m_Degrees.push_back(i);
    }
    const CPackProblem problem(pieces, STRIP, true);
    EXPECT_LT(problem.VersionsOf(0).size(), 180U);
    EXPECT_GT(problem.VersionsOf(0).size(), 2U);
    for (const size_t nVersion : problem.VersionsOf(0)) {
        const SFreePacking packing = problem.PackingOf(
            std::vector<SFreePlacement>{problem.PlacementOf(0, nVersion, {50'000'000, 50'000'000})});
        ASSERT_EQ(support::FaultOf(pieces, packing), "");
    }
}

TEST(PackProblem, SearchesWithFewPartsOfRaggedOutlinesAndWithHullsOfDeepOnes) {
    const std::vector<SPiece> pieces{support::Star(1000, 27.0, 30.0), support::Star(1000, 5.0, 30.0),
                                     support::Star(16, 5.0, 30.0)};
    const CPackProblem problem(pieces, STRIP, true);
    ASSERT_EQ(problem.Figures().size(), 3U);
    EXPECT_LE(problem.Figures()[0].m_Parts.size(), 100U);
    EXPECT_EQ(problem.Figures()[1].m_Parts.size(), 1U);
    EXPECT_GE(problem.Figures()[2].m_Parts.size(), 16U);
    EXPECT_LT(problem.Figures()[1].m_Area, 0.3 * problem.Figures()[0].m_Area);
}

TEST(PackProblem, PlacesAnItemWhereItsReferencePointIsPut) {
    const std::vector<SPiece> pieces{Copies(support::LetterL(30), 1, {90.0})};
    const CPackProblem problem(pieces, STRIP, true);
    const SGridPoint at{50'000'000, 70'000'000};
    const SFreePacking packing =
        problem.PackingOf(std::vector<SFreePlacement>{problem.PlacementOf(0, 0, at)});
    const SGridBox box = BoxOf(PlacedShapes(pieces, packing)[0].m_Outline);
    const SGridBox& expected = problem.Versions()[0].m_Box;
    EXPECT_EQ(box.m_Low, at + expected.m_Low);
    EXPECT_EQ(box.m_High, at + expected.m_High);
    EXPECT_EQ(packing.m_nHeight, box.m_High.m_nY);
}

/// In none of the turns that are tried this piece lies as low as on its second longest side.
TEST(PackProblem, TakesNoTurnThatIsTriedForTheLowestOfAnyAngle) {
    SPiece sliver = support::PieceOf({{0, 0}, {12, 2}, {32, 6}, {10, 6}});
    sliver.m_Turns.m_bAny = true;
    const CPackProblem problem({&sliver, 1}, {50.0, 0.0, 0.0}, true);
    EXPECT_LT(problem.Grid().Length(problem.LeastHeight()), 52.0 / std::sqrt(148.0));
}

}  // namespace

}  // namespace nestrix
