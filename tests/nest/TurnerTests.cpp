#include "nest/CTurner.h"

#include <gtest/gtest.h>

#include "nest/GridGeometry.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using support::Copies;

/// A copy of a piece, and where the middle of its box lies, in the strip's units.
struct SLying {
    int m_nPiece;
    double m_Degrees;
    SPoint m_Middle;
};

SFreePacking PackingOf(const std::vector<SPiece>& pieces, const SFreeStrip& strip,
                       const std::vector<SLying>& lying) {
    SFreePacking packing{strip, GridFor(strip.m_Width), {}, 0};
    for (const SLying& item : lying) {
        const SShape& shape = pieces[static_cast<size_t>(item.m_nPiece)].m_Shape;
        const SGridBox box = BoxOf(Laid(OnGrid(shape, packing.m_Grid), item.m_Degrees, false).m_Outline);
        const SGridPoint low{packing.m_Grid.Count(item.m_Middle.m_X) - box.Width() / 2,
                             packing.m_Grid.Count(item.m_Middle.m_Y) - box.Height() / 2};
        packing.m_Placed.push_back({item.m_nPiece, false, item.m_Degrees, low - box.m_Low});
    }
    packing.m_nHeight = HeightOf(PlacedShapes(pieces, packing));
    return packing;
}

SPiece AtAnyAngle(SPiece piece) {
    piece.m_Turns.m_bAny = true;
    return piece;
}

/// What a turner makes of packings. All of them are valid.
class Turner : public testing::Test {
protected:
    std::optional<SFreePacking> Lowered(const std::vector<SPiece>& pieces, const SFreeStrip& strip,
                                        const std::vector<SLying>& lying, uint64_t nSteps = 1000,
                                        int64_t nKnown = std::numeric_limits<int64_t>::max()) {
        const SFreePacking packing = PackingOf(pieces, strip, lying);
        EXPECT_EQ(support::FaultOf(pieces, packing), "");
        const CPackProblem problem(pieces, strip, true);
        CStepLimit limit(1, nSteps, [] { return false; });
        CStepCounter steps(limit, 0, nSteps + 1, [] {});
        std::optional<SFreePacking> lowered = CTurner(problem, steps).Lower(packing, nKnown);
        m_nSteps = steps.Steps();
        if (lowered) {
            EXPECT_EQ(support::FaultOf(pieces, *lowered), "");
            EXPECT_LT(lowered->m_nHeight, packing.m_nHeight);
        }
        return lowered;
    }

    uint64_t m_nSteps = 0;
};

double HeightOf(const std::optional<SFreePacking>& packing) {
    return packing ? packing->m_Grid.Length(packing->m_nHeight) : -1.0;
}

const SPiece SQUARE = AtAnyAngle(support::Box(10, 10));
const SFreeStrip STRIP{40.0, 0.0, 0.0};

TEST_F(Turner, LaysATiltedSquareFlat) {
    EXPECT_NEAR(HeightOf(Lowered({SQUARE}, STRIP, {{0, 20.0, {20, 8}}})), 10.0, 1e-3);
    EXPECT_NEAR(HeightOf(Lowered({SQUARE}, STRIP, {{0, 340.0, {20, 8}}})), 10.0, 1e-3);
}

TEST_F(Turner, TurnsOnlyWhatMayBeTurnedByAnyAngle) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 1, {20.0}), SQUARE};
    const std::optional<SFreePacking> lowered =
        Lowered(pieces, {16.0, 0.0, 0.0}, {{0, 20.0, {8, 6.5}}, {1, 20.0, {8, 20}}});
    ASSERT_TRUE(lowered);
    EXPECT_EQ(lowered->m_Placed[0].m_Degrees, 20.0);
    EXPECT_NE(lowered->m_Placed[1].m_Degrees, 20.0);
}

TEST_F(Turner, SetsWhatItTurnsDownOnWhatMayNotBeTurned) {
    const std::vector<SPiece> pieces{support::Box(10, 10), SQUARE};
    EXPECT_NEAR(HeightOf(Lowered(pieces, {12.5, 0.0, 0.0}, {{0, 0.0, {7, 5}}, {1, 5.0, {6, 17}}})), 20.0,
                1e-3);
}

TEST_F(Turner, BalancesAPlankOnATip) {
    const std::vector<SPiece> pieces{support::PieceOf({{10, 0}, {20, 10}, {10, 20}, {0, 10}}),
                                     AtAnyAngle(support::Box(30, 4))};
    const SFreeStrip strip{31.0, 0.0, 0.0};
    EXPECT_NEAR(HeightOf(Lowered(pieces, strip, {{0, 0.0, {14, 10}}, {1, 8.0, {15.5, 22.4}}})), 24.0, 1e-3);
}

TEST_F(Turner, KeepsSpacingAndMargin) {
    const std::vector<SPiece> pieces{Copies(SQUARE, 2)};
    const SFreeStrip strip{20.0, 1.5, 2.0};
    EXPECT_NEAR(HeightOf(Lowered({AtAnyAngle(pieces[0])}, strip, {{0, 10.0, {9, 9}}, {0, 350.0, {10, 24}}})),
                23.5, 1e-3);
}

TEST_F(Turner, TurnsAFrameWithWhatLiesInItsHole) {
    const std::vector<SPiece> pieces{AtAnyAngle(support::Frame(30, 16)), SQUARE};
    EXPECT_NEAR(HeightOf(Lowered(pieces, STRIP, {{0, 8.0, {20, 20}}, {1, 30.0, {20, 20}}})), 30.0, 1e-3);
}

TEST_F(Turner, FindsNothingWhereAllLieFlat) {
    const std::vector<SPiece> pieces{AtAnyAngle(Copies(support::Box(10, 10), 2))};
    EXPECT_FALSE(Lowered({AtAnyAngle(pieces[0])}, {20.0, 0.0, 0.0}, {{0, 0.0, {5, 5}}, {0, 0.0, {15, 5}}}));
}

TEST_F(Turner, GivesUpWhatIsFarFromTheKnownHeight) {
    const std::vector<SLying> lying{{0, 40.0, {20, 8}}};
    (void)Lowered({SQUARE}, STRIP, lying);
    EXPECT_GT(m_nSteps, 6U);
    (void)Lowered({SQUARE}, STRIP, lying, 1000, 1);
    EXPECT_EQ(m_nSteps, 4U);
}

TEST_F(Turner, TakesNoMoreStepsThanThereAre) {
    const std::vector<SLying> lying{{0, 40.0, {20, 8}}};
    EXPECT_FALSE(Lowered({SQUARE}, STRIP, lying, 0));
    EXPECT_TRUE(Lowered({SQUARE}, STRIP, lying, 2));
    EXPECT_EQ(m_nSteps, 2U);
}

/// More items than one linear program moves.
TEST_F(Turner, LowersMoreThanFourHundredItems) {
    std::vector<SLying> lying;
    for (int i = 0; i < 408; ++i) {
        lying.push_back({0, i % 2 == 0 ? 3.0 : 357.0, {5.5 + 11.0 * (i % 24), 5.5 + 11.0 * (i / 24)}});
    }
    const std::optional<SFreePacking> lowered =
        Lowered({AtAnyAngle(Copies(SQUARE, 408))}, {264.0, 0.0, 0.0}, lying, 24);
    EXPECT_LT(HeightOf(lowered), 17 * 11.0 - 2.0);
}

}  // namespace

}  // namespace nestrix
