#include <gtest/gtest.h>

#include "nest/PackFreely.h"
#include "tests/nest/CPackingLog.h"

namespace nestrix {

// When a search ends, and where it begins.

namespace {

using support::Copies;
using support::HeightOf;
using support::PackAndExamine;
using support::StepSettings;

constexpr SFreeStrip STRIP{90.0, 0.0, 0.0};

TEST(PackLimits, OfStepsEndAfterThem) {
    const SPackResult result = PackAndExamine(support::MixedSet(), STRIP, StepSettings(300));
    EXPECT_EQ(result.m_nSteps, 300U);
    EXPECT_EQ(result.m_eEnd, EPackEnd::STEPS);
}

TEST(PackLimits, OfTimeEndAfterIt) {
    SPackSettings settings;
    settings.m_Limits.m_Seconds = 0.2;
    const SPackResult result = PackAndExamine(support::MixedSet(), STRIP, settings);
    EXPECT_GE(result.m_Seconds, 0.2);
    EXPECT_LT(result.m_Seconds, 20.0);
    EXPECT_EQ(result.m_eEnd, EPackEnd::SECONDS);
}

TEST(PackLimits, OfHeightEndWithTheFirstPackingAsLow) {
    SPackSettings settings = StepSettings(100'000);
    settings.m_Limits.m_TargetHeight = 60.0;
    const SPackResult result = PackAndExamine(support::MixedSet(), STRIP, settings);
    EXPECT_LE(HeightOf(result), 60.0);
    EXPECT_EQ(result.m_eEnd, EPackEnd::TARGET);
    EXPECT_LT(result.m_nSteps, 100'000U);
}

TEST(PackLimits, OfDensityEndWithTheFirstPackingAsDense) {
    const std::vector<SPiece> pieces = support::MixedSet();
    SPackSettings settings = StepSettings(100'000);
    settings.m_Limits.m_TargetDensity = 0.6;
    const SPackResult result = PackAndExamine(pieces, STRIP, settings);
    EXPECT_GE(DensityOf(pieces, *result.m_Packing), 0.6);
    EXPECT_EQ(result.m_eEnd, EPackEnd::TARGET);
}

TEST(PackLimits, OfPatienceEndWhereNothingIsGained) {
    SPackSettings settings;
    settings.m_Limits.m_Patience = 0.1;
    EXPECT_EQ(PackAndExamine(support::MixedSet(), STRIP, settings).m_eEnd, EPackEnd::PATIENCE);
}

TEST(PackLimits, EndAtOnceWhereNothingLowerIsPossible) {
    const std::vector<SPiece> pieces{Copies(support::Box(10, 10), 9)};
    const SPackResult result = PackAndExamine(pieces, STRIP, {});
    EXPECT_EQ(HeightOf(result), 10.0);
    EXPECT_EQ(result.m_eEnd, EPackEnd::NOTHING_TO_GAIN);
}

TEST(PackLimits, EndAtOnceWhereTheSinkSaysSo) {
    support::CPackingLog log(1);
    const SPackResult result = PackFreely(support::MixedSet(), STRIP, {}, log);
    ASSERT_FALSE(log.Packings().empty());
    EXPECT_EQ(result.m_Packing->m_Placed, log.Packings().back().m_Placed);
    EXPECT_EQ(result.m_eEnd, EPackEnd::STOPPED);
    EXPECT_LT(result.m_nSteps, 10U);
}

TEST(PackLimits, OfNoStepsGiveTheFirstPacking) {
    const SPackResult result = PackAndExamine(support::MixedSet(), STRIP, StepSettings(0));
    EXPECT_EQ(result.m_nSteps, 0U);
}

TEST(AnEarlierPacking, IsNeverMadeWorse) {
    const std::vector<SPiece> pieces = support::MixedSet();
    const SPackResult earlier = PackAndExamine(pieces, STRIP, StepSettings(2000));
    for (const uint64_t nSteps : {0U, 1U, 500U}) {
        SPackSettings settings = StepSettings(nSteps);
        settings.m_nSeed = 7;
        settings.m_pStart = &*earlier.m_Packing;
        EXPECT_LE(HeightOf(PackAndExamine(pieces, STRIP, settings)), HeightOf(earlier));
    }
}

TEST(AnEarlierPacking, AtAnyAngleIsNeverMadeWorse) {
    std::vector<SPiece> pieces = support::MixedSet();
    for (SPiece& piece : pieces) {
        piece.m_Turns.m_bAny = true;
        piece.m_bMirrored = true;
    }
    const SPackResult earlier = PackAndExamine(pieces, STRIP, StepSettings(1000));
    SPackSettings settings = StepSettings(100);
    settings.m_pStart = &*earlier.m_Packing;
    EXPECT_LE(HeightOf(PackAndExamine(pieces, STRIP, settings)), HeightOf(earlier));
}

TEST(AnEarlierPacking, IsGoneOnWithWhenPiecesAreAddedOrTakenAway) {
    std::vector<SPiece> pieces = support::MixedSet();
    const SPackResult earlier = PackAndExamine(pieces, STRIP, StepSettings(1000));
    SPackSettings settings = StepSettings(300);
    settings.m_pStart = &*earlier.m_Packing;
    pieces[0].m_nQuantity -= 2;
    EXPECT_LE(HeightOf(PackAndExamine(pieces, STRIP, settings)), HeightOf(earlier));
    pieces[0].m_nQuantity += 4;
    pieces.push_back(support::Box(12, 8));
    (void)PackAndExamine(pieces, STRIP, settings);
}

}  // namespace

}  // namespace nestrix
