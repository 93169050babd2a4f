#include <gtest/gtest.h>

#include <algorithm>
#include <thread>

#include "nest/PackFreely.h"
#include "tests/nest/CPackingLog.h"

namespace nestrix {

// What a change of the input changes in the result, and what is the same whenever the input is.

namespace {

using support::HeightOf;
using support::PackAndExamine;
using support::StepSettings;

constexpr SFreeStrip STRIP{90.0, 0.5, 1.0};
constexpr uint64_t STEPS = 800;

using CChange = SPoint (*)(SPoint);

std::vector<SPiece> Changed(std::vector<SPiece> pieces, CChange change) {
    const auto changeRing = [change](CRing& ring) {
        std::transform(ring.begin(), ring.end(), ring.begin(), change);
    };
    for (SPiece& piece : pieces) {
        changeRing(piece.m_Shape.m_Outline);
        std::for_each(piece.m_Shape.m_Holes.begin(), piece.m_Shape.m_Holes.end(), changeRing);
    }
    return pieces;
}

SPackResult Pack(const std::vector<SPiece>& pieces, int nThreads = 1, uint64_t nSteps = STEPS) {
    return PackAndExamine(pieces, STRIP, StepSettings(nSteps, nThreads));
}

void ExpectSame(const SPackResult& a, const SPackResult& b) {
    EXPECT_TRUE(a.m_Packing->m_Placed == b.m_Packing->m_Placed);
    EXPECT_EQ(a.m_Packing->m_nHeight, b.m_Packing->m_nHeight);
    EXPECT_EQ(a.m_nSteps, b.m_nSteps);
}

TEST(PackLaw, PiecesDrawnElsewhereArePackedTheSame) {
    const std::vector<SPiece> pieces = support::MixedSet();
    ExpectSame(Pack(pieces), Pack(Changed(pieces, [](SPoint p) { return SPoint{p.m_X + 128, p.m_Y - 64}; })));
}

TEST(PackLaw, TenTimesTheSizeIsPackedTheSameOnACoarserGrid) {
    const std::vector<SPiece> pieces = support::MixedSet();
    const SPackResult plain = PackAndExamine(pieces, {90.0, 0.0, 0.0}, StepSettings(STEPS));
    const SPackResult large = PackAndExamine(Changed(pieces,
                                                     [](SPoint p) {
                                                         return SPoint{p.m_X * 10, p.m_Y * 10};
                                                     }),
                                             {900.0, 0.0, 0.0}, StepSettings(STEPS));
    EXPECT_EQ(large.m_Packing->m_Grid.m_nExponent, plain.m_Packing->m_Grid.m_nExponent + 1);
    ExpectSame(plain, large);
}

TEST(PackLaw, AnySizeMirrorImageAndOrderIsPackedValidly) {
    const std::vector<SPiece> pieces = support::MixedSet();
    for (const CChange change : {CChange([](SPoint p) {
                                     return SPoint{-p.m_X, p.m_Y};
                                 }),
                                 CChange([](SPoint p) {
                                     return SPoint{p.m_X, -p.m_Y};
                                 }),
                                 CChange([](SPoint p) {
                                     return SPoint{p.m_Y, p.m_X};
                                 })}) {
        (void)Pack(Changed(pieces, change));
    }
    std::vector<SPiece> reversed(pieces.rbegin(), pieces.rend());
    (void)Pack(reversed);
    const SPackResult large = PackAndExamine(Changed(pieces,
                                                     [](SPoint p) {
                                                         return SPoint{p.m_X * 7, p.m_Y * 7};
                                                     }),
                                             {630.0, 3.5, 7.0}, StepSettings(STEPS));
    EXPECT_GT(HeightOf(large), 7 * 30.0);
}

TEST(PackLaw, TheSameStepsGiveTheSamePacking) {
    const std::vector<SPiece> pieces = support::MixedSet();
    for (const int nThreads : {1, 2, 3}) {
        ExpectSame(Pack(pieces, nThreads), Pack(pieces, nThreads));
    }
}

TEST(PackLaw, AnotherSeedGivesAnotherPacking) {
    const std::vector<SPiece> pieces = support::MixedSet();
    SPackSettings settings = StepSettings(STEPS);
    const SPackResult first = PackAndExamine(pieces, STRIP, settings);
    settings.m_nSeed = 2;
    EXPECT_NE(first.m_Packing->m_Placed, PackAndExamine(pieces, STRIP, settings).m_Packing->m_Placed);
}

TEST(PackLaw, ASearchLimitedByTimeIsRepeatedByItsSteps) {
    const std::vector<SPiece> pieces = support::MixedSet();
    for (const int nThreads : {1, 3}) {
        SPackSettings settings;
        settings.m_nThreads = nThreads;
        settings.m_Limits.m_Seconds = 0.3;
        const SPackResult first = PackAndExamine(pieces, STRIP, settings);
        EXPECT_GT(first.m_nSteps, 0U);
        ExpectSame(first, Pack(pieces, nThreads, first.m_nSteps));
    }
}

TEST(PackLaw, ThreadsThatMeetGiveTheSamePackingEachTime) {
    // A few pieces are moved quickly, as often as it takes to meet once at least.
    const std::vector<SPiece> pieces{support::Copies(support::LetterL(24), 7, {0.0})};
    constexpr uint64_t STEPS_TO_MEET = 36'000;
    const SPackResult first = Pack(pieces, 2, STEPS_TO_MEET);
    EXPECT_EQ(first.m_nSteps, STEPS_TO_MEET);
    ExpectSame(first, Pack(pieces, 2, STEPS_TO_MEET));
}

TEST(PackLaw, ThreadsGiveTheSamePackingEachTimeWhenOneFindsTheLowest) {
    const std::vector<SPiece> pieces{support::Copies(support::RightTriangle(30, 40), 3, {0.0, 180.0})};
    constexpr uint64_t MORE_THAN_NEEDED = 36'000;
    const SPackResult first = Pack(pieces, 2, MORE_THAN_NEEDED);
    EXPECT_EQ(first.m_eEnd, EPackEnd::NOTHING_TO_GAIN);
    for (int i = 0; i < 10; ++i) {
        ExpectSame(first, Pack(pieces, 2, MORE_THAN_NEEDED));
    }
}

TEST(PackLaw, TwoSearchesAtOnceDoNotDisturbEachOther) {
    const std::vector<SPiece> pieces = support::MixedSet();
    const SPackResult alone = Pack(pieces);
    const std::vector<SPiece> others{support::Copies(support::LetterL(24), 5, {0.0, 180.0})};
    const SPackResult otherAlone = Pack(others);
    SPackResult one;
    SPackResult other;
    {
        const std::jthread first([&] { one = Pack(pieces); });
        const std::jthread second([&] { other = Pack(others); });
    }
    ExpectSame(alone, one);
    ExpectSame(otherAlone, other);
}

}  // namespace

}  // namespace nestrix
