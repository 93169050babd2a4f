#include <gtest/gtest.h>

#include "tests/nest/GridParts.h"
#include "tests/reference/COverlapComparison.h"
#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// Random shapes on small grids, where most pairs touch somewhere, against the plain overlap measure.

namespace {

using reference::COverlapComparison;
using support::CSeededRandom;
using support::RandomCases;

/// How often the shapes' unit has a place.
constexpr int MAGNIFIED = reference::OVERLAP_DENOMINATOR_MOST;

struct SCase {
    SGridShape m_Stays;
    SGridShape m_Moves;
};

/// A hole that the other shape's outline is walked round, which so fits into it exactly.
SGridShape WithHoleFor(const SGridShape& shape) {
    return {support::GridRectangle({-3, -3}, 18, 18), {shape.m_Outline}};
}

SCase RandomCase(CSeededRandom& random) {
    SGridShape moves = support::RandomSoundShape(random, 6);
    SGridShape stays = random.Percent(25) ? WithHoleFor(moves) : support::RandomSoundShape(random, 6);
    return {std::move(stays), std::move(moves)};
}

/// Anywhere; on the whole grid, where corners meet; or near such a place.
SGridPoint RandomPlace(CSeededRandom& random) {
    const int64_t nX = random.Range(-12, 12);
    const SGridPoint at{nX * MAGNIFIED, static_cast<int64_t>(random.Range(-12, 12)) * MAGNIFIED};
    if (random.Percent(30)) {
        return at;
    }
    const int nOff = random.Percent(50) ? 1000 : MAGNIFIED;
    const int nOffX = random.Range(-nOff, nOff);
    return at + SGridPoint{nOffX, random.Range(-nOff, nOff)};
}

std::string Text(const SCase& pair) {
    return support::Text(pair.m_Stays) + " |" + support::Text(pair.m_Moves);
}

CPairField FieldOf(const SCase& pair) {
    return {support::PartsOf(support::Scaled(pair.m_Stays, MAGNIFIED)),
            support::PartsOf(support::Scaled(pair.m_Moves, MAGNIFIED)), -COverlapComparison::UNNOTICED};
}

TEST(OverlapOfRandomShapes, IsAsDeepAsThePlainMeasureSays) {
    constexpr int PLACES = 20;
    CSeededRandom random(1);
    int nDeep = 0;
    int nNone = 0;
    for (int i = 0; i < RandomCases(1500); ++i) {
        const SCase pair = RandomCase(random);
        COverlapComparison comparison(pair.m_Stays, pair.m_Moves);
        for (int k = 0; k < PLACES; ++k) {
            const SGridPoint at = k == 0 ? SGridPoint() : RandomPlace(random);
            ASSERT_EQ(comparison.FindDifference(at.m_nX, at.m_nY), "") << Text(pair);
            ++(comparison.Field().DepthAt(AsPoint(at)) > 0.0 ? nDeep : nNone);
        }
    }
    EXPECT_GT(nDeep, RandomCases(1500) * PLACES / 4);
    EXPECT_GT(nNone, RandomCases(1500) * PLACES / 8);
}

TEST(OverlapOfRandomShapes, IsGoneAfterTheWayOut) {
    CSeededRandom random(2);
    for (int i = 0; i < RandomCases(1500); ++i) {
        const SCase pair = RandomCase(random);
        const CPairField field = FieldOf(pair);
        for (int k = 0; k < 20; ++k) {
            const SPoint at = AsPoint(RandomPlace(random));
            const SDepth depth = field.FindWayOut(at);
            ASSERT_NEAR(depth.m_Depth, field.DepthAt(at), 1e-9 * depth.m_Depth);
            if (depth.m_Depth > 0.0) {
                ASSERT_NEAR(Length(depth.m_Out), 1.0, 1e-12);
                ASSERT_LE(field.DepthAt(at + depth.m_Out * depth.m_Depth), COverlapComparison::TOLERANCE)
                    << Text(pair) << " at " << at.m_X << ", " << at.m_Y;
            }
        }
    }
}

TEST(OverlapOfRandomShapes, IsAtLeastWhatIsEnoughWhereTheAnswerIsNotExact) {
    CSeededRandom random(3);
    int nInexact = 0;
    for (int i = 0; i < RandomCases(1500); ++i) {
        const CPairField field = FieldOf(RandomCase(random));
        for (int k = 0; k < 20; ++k) {
            const SPoint at = AsPoint(RandomPlace(random));
            const double factor = static_cast<double>(random.Between(0.1F, 30.0F));
            const double exact = factor * field.DepthAt(at);
            const double enough = static_cast<double>(random.Between(0.0F, 2.0F)) * exact;
            const double answer = field.DepthAt(at, factor, enough);
            ASSERT_LE(answer, exact * (1.0 + 1e-12));
            ASSERT_TRUE(answer >= enough || answer == exact)
                << answer << " of " << exact << " for " << enough;
            nInexact += answer < exact ? 1 : 0;
        }
    }
    EXPECT_GT(nInexact, 0);
}

}  // namespace

}  // namespace nestrix
