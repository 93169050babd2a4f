#include "nest/PackFreely.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <ctime>

#include "nest/CPackProblem.h"
#include "tests/nest/CPackingLog.h"
#include "tests/support/FreePieces.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

// What a search does with sets of all kinds.

namespace {

using support::Copies;
using support::HeightOf;
using support::PackAndExamine;
using support::StepSettings;

constexpr SFreeStrip STRIP{90.0, 0.0, 0.0};

TEST(PackFreely, OfNothingIsDoneAtOnce) {
    support::CPackingLog log;
    const SPackResult result = PackFreely({}, STRIP, {}, log);
    ASSERT_TRUE(result.m_Packing);
    EXPECT_TRUE(result.m_Packing->m_Placed.empty());
    EXPECT_EQ(result.m_Packing->m_nHeight, 0);
    EXPECT_EQ(result.m_eEnd, EPackEnd::NOTHING_TO_GAIN);
}

TEST(PackFreely, LaysASinglePieceInItsLowestTurn) {
    const std::vector<SPiece> pieces{Copies(support::Box(20, 50), 1, {0.0, 90.0})};
    const SPackResult result = PackAndExamine(pieces, STRIP, {});
    EXPECT_EQ(HeightOf(result), 20.0);
    EXPECT_EQ(result.m_eEnd, EPackEnd::NOTHING_TO_GAIN);
}

TEST(PackFreely, LowersASinglePieceThatLayHighEarlier) {
    const std::vector<SPiece> pieces{support::Box(20, 50)};
    const SGrid grid = GridFor(STRIP.m_Width);
    const SFreePacking earlier{STRIP, grid, {{0, false, 0.0, {0, grid.Count(70.0)}}}, grid.Count(120.0)};
    SPackSettings settings;
    settings.m_pStart = &earlier;
    EXPECT_EQ(HeightOf(PackAndExamine(pieces, STRIP, settings)), 50.0);
}

TEST(PackFreely, LeavesOutPiecesOfWhichThereIsNone) {
    const std::vector<SPiece> pieces{Copies(support::Box(20, 50), 0), support::Box(20, 30)};
    const SPackResult result = PackAndExamine(pieces, STRIP, {});
    EXPECT_EQ(result.m_Packing->m_Placed.size(), 1U);
}

TEST(PackFreely, PacksAMixedSetLowerThanByBoxes) {
    const std::vector<SPiece> pieces = support::MixedSet();
    const double first = HeightOf(PackAndExamine(pieces, STRIP, StepSettings(0)));
    EXPECT_LT(HeightOf(PackAndExamine(pieces, STRIP, StepSettings(2000))), 0.95 * first);
}

TEST(PackFreely, PutsAPuzzleTogetherBeforeItSearches) {
    const SPackResult result = PackAndExamine(support::Puzzle(), {60.0, 0.0, 0.0}, StepSettings(10 * 5 + 10));
    EXPECT_EQ(HeightOf(result), 60.0);
    EXPECT_EQ(result.m_eEnd, EPackEnd::NOTHING_TO_GAIN);
}

TEST(PackFreely, KeepsTheSpacingAndTheMargin) {
    const std::vector<SPiece> pieces = support::MixedSet();
    const double plain = HeightOf(PackAndExamine(pieces, STRIP, StepSettings(1000)));
    const SPackResult spaced = PackAndExamine(pieces, {90.0, 2.0, 1.0}, StepSettings(1000));
    EXPECT_EQ(spaced.m_Packing->m_Strip.m_Spacing, 2.0);
    EXPECT_GT(HeightOf(spaced), plain);
}

TEST(PackFreely, LaysASmallPieceInAHoleUnlessThatIsSwitchedOff) {
    // The frame fills the strip's width: whatever is not in its hole lies above it.
    const std::vector<SPiece> pieces{support::Frame(40, 24), support::RightTriangle(15, 15)};
    SPackSettings settings = StepSettings(400);
    EXPECT_EQ(HeightOf(PackAndExamine(pieces, {40.0, 0.0, 0.0}, settings)), 40.0);
    settings.m_bUseHoles = false;
    EXPECT_EQ(HeightOf(PackAndExamine(pieces, {40.0, 0.0, 0.0}, settings)), 55.0);
}

TEST(PackFreely, LaysASquareInAHoleThatItFitsExactly) {
    const std::vector<SPiece> pieces{support::Frame(40, 20), support::Box(20, 20)};
    EXPECT_EQ(HeightOf(PackAndExamine(pieces, {40.0, 0.0, 0.0}, StepSettings(1000))), 40.0);
}

TEST(PackFreely, PacksPiecesThatFillASheetExactly) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 4), Copies(support::Box(20, 5), 2),
                                     Copies(support::RightTriangle(20, 10), 4, {0.0, 180.0})};
    EXPECT_LT(HeightOf(PackAndExamine(pieces, {40.0, 0.0, 0.0}, StepSettings(2000))), 30.0);
}

TEST(PackFreely, PacksAPieceAsWideAsTheStrip) {
    const std::vector<SPiece> pieces{support::Box(90, 10), Copies(support::LetterL(24), 4)};
    (void)PackAndExamine(pieces, STRIP, StepSettings(500));
}

TEST(PackFreely, PacksAThousandEqualPieces) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 1000)};
    EXPECT_EQ(HeightOf(PackAndExamine(pieces, {400.0, 0.0, 0.0}, StepSettings(200))), 250.0);
}

TEST(PackFreely, PacksOutlinesOfFiveThousandVertices) {
    const std::vector<SPiece> pieces{Copies(support::RegularPiece(5000, 20.0), 2)};
    (void)PackAndExamine(pieces, {60.0, 0.0, 0.0}, StepSettings(5));
}

TEST(PackFreely, PacksRaggedOutlines) {
    const std::vector<SPiece> pieces{
        Copies(support::Star(500, 18.0, 20.0), 2), Copies(support::Star(200, 5.0, 20.0), 2),
        Copies(support::Star(4000, 19.99, 20.0), 2), Copies(support::Star(4000, 10.0, 20.0), 2)};
    (void)PackAndExamine(pieces, {90.0, 0.0, 0.0}, StepSettings(20));
}

TEST(PackFreely, PacksShapesThatTouchThemselves) {
    const std::vector<SPiece> pieces{
        Copies(support::PieceOf({{0, 0}, {10, 10}, {20, 0}, {20, 20}, {10, 10}, {0, 20}}), 3),
        Copies(support::PieceOf(support::RectangleRing(0, 0, 20, 20), {{{0, 10}, {9, 5}, {9, 15}}}), 3),
        Copies(support::PieceOf({{0, 0},
                                 {20, 0},
                                 {20, 20},
                                 {0, 20},
                                 {0, 5},
                                 {5, 5},
                                 {5, 10},
                                 {10, 10},
                                 {10, 5},
                                 {5, 5},
                                 {0, 5}}),
               2)};
    (void)PackAndExamine(pieces, {60.0, 0.0, 0.0}, StepSettings(1000));
}

TEST(PackFreely, LaysPiecesMirroredAndAtAnyAngle) {
    std::vector<SPiece> pieces{Copies(support::RightTriangle(20, 10), 6), Copies(support::LetterL(20), 3)};
    pieces[0].m_bMirrored = true;
    pieces[1].m_Turns.m_bAny = true;
    (void)PackAndExamine(pieces, {50.0, 0.5, 0.0}, StepSettings(1000));
}

/// A convex piece is lowest on one of its sides (Freeman and Shapira 1975): this one on its second longest,
/// which in no turn that is tried lies along the floor.
TEST(PackFreely, LaysASinglePieceAsLowAsAnyTurnAllows) {
    SPiece sliver = support::PieceOf({{0, 0}, {12, 2}, {32, 6}, {10, 6}});
    sliver.m_Turns.m_bAny = true;
    const SPackResult result = PackAndExamine({&sliver, 1}, {50.0, 0.0, 0.0}, StepSettings(1000));
    EXPECT_NEAR(HeightOf(result), 52.0 / std::sqrt(148.0), 1e-3);
    EXPECT_EQ(result.m_eEnd, EPackEnd::NOTHING_TO_GAIN);
}

TEST(PackFreely, TurnsPiecesOfAnyAngleOutOfTheTurnsThatItTries) {
    std::vector<SPiece> pieces{Copies(support::RegularPiece(7, 10.0), 2),
                               Copies(support::RightTriangle(20, 10), 2),
                               Copies(support::Star(5, 5.0, 10.0), 2)};
    for (SPiece& piece : pieces) {
        piece.m_Turns.m_bAny = true;
    }
    const SFreeStrip strip{50.0, 0.5, 0.5};
    SPackSettings settings = StepSettings(3000);
    const SPackResult result = PackAndExamine(pieces, strip, settings);
    const CPackProblem problem(pieces, strip, true);
    const std::vector<SFreePlacement>& placed = result.m_Packing->m_Placed;
    EXPECT_TRUE(std::any_of(placed.begin(), placed.end(), [&](const SFreePlacement& placement) {
        return !problem.FindVersion(static_cast<size_t>(placement.m_nPiece), placement.m_Degrees, false);
    }));
    settings.m_Limits.m_TargetHeight = HeightOf(result) * 1.0001;
    const SPackResult sooner = PackAndExamine(pieces, strip, settings);
    EXPECT_EQ(sooner.m_eEnd, EPackEnd::TARGET);
    EXPECT_LT(sooner.m_nSteps, result.m_nSteps);
}

TEST(PackFreely, NamesUnfitPiecesAndSearchesNothing) {
    const std::vector<SPiece> pieces{support::Box(10, 10), support::Box(100, 10)};
    support::CPackingLog log;
    const SPackResult result = PackFreely(pieces, STRIP, StepSettings(1000), log);
    EXPECT_FALSE(result.m_Packing);
    ASSERT_EQ(result.m_Unfit.size(), 1U);
    EXPECT_EQ(result.m_Unfit[0].m_nPiece, 1);
    EXPECT_EQ(result.m_eEnd, EPackEnd::UNFIT);
    EXPECT_TRUE(log.Packings().empty());
}

double ProcessorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

TEST(PackFreely, HasAFirstPackingOfTenThousandPiecesSoon) {
    std::vector<SPiece> pieces;
    for (int i = 0; i < 50; ++i) {
        pieces.push_back(Copies(support::RegularPiece(16, 4.0 + 0.1 * i), 200, {0.0, 45.0, 90.0, 180.0}));
    }
    support::CPackingLog log(1);
    const double begin = ProcessorSeconds();
    const SPackResult result = PackFreely(pieces, {2000.0, 0.0, 0.0}, StepSettings(0), log);
    const double seconds = ProcessorSeconds() - begin;
    ASSERT_EQ(log.Packings().size(), 1U);
    EXPECT_EQ(log.Packings()[0].m_Placed.size(), 10'000U);
    EXPECT_LT(seconds, support::UNDER_SANITIZER ? 60.0 : 15.0);
    RecordProperty("milliseconds", static_cast<int>(1000 * seconds));
}

}  // namespace

}  // namespace nestrix
