#include "nest/CPlaceRefiner.h"

#include <gtest/gtest.h>

#include "tests/nest/CMoveScene.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CMoveScene;
using support::RandomCases;

/// Neighbours may be summed up in another order.
constexpr double ROUNDING = 1e-9;

SCandidate Refined(CItemOverlap& overlap, const SPlace& place, uint64_t nSeed) {
    CRandom random(nSeed);
    SCandidate candidate{place, overlap.ValueAt(place, HUGE_VAL)};
    CPlaceRefiner(overlap, random).Refine(candidate);
    return candidate;
}

TEST(PlaceRefiner, NeverMakesAPlaceWorseNorLeavesTheRoomNorTheVersion) {
    CMoveScene scene = support::MixedScene(1);
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    int nMuchBetter = 0;
    for (int i = 0; i < RandomCases(1000); ++i) {
        const CItemOverlap::CScope ofItem(overlap, scene.Random().Index(scene.Layout().Count()));
        const SPlace from = scene.DrawPlace(overlap.Item());
        const double before = overlap.ValueAt(from, HUGE_VAL);
        const SCandidate to = Refined(overlap, from, static_cast<uint64_t>(i));
        ASSERT_LE(to.m_Value, before * (1.0 + ROUNDING));
        ASSERT_NEAR(to.m_Value, overlap.ValueAt(to.m_Place, HUGE_VAL), ROUNDING * before);
        ASSERT_EQ(to.m_Place.m_nVersion, from.m_nVersion);
        ASSERT_TRUE(scene.IsInRoom(to.m_Place));
        nMuchBetter += to.m_Value < 0.8 * before ? 1 : 0;
    }
    EXPECT_GT(nMuchBetter, RandomCases(1000) / 2);
}

TEST(PlaceRefiner, LeavesAPlaceWithoutOverlap) {
    CMoveScene scene({support::Copies(support::Box(10.0, 10.0), 2)}, {40.0, 0.0, 0.0}, 10.0, 1);
    scene.Put(1, 35.0, 5.0);
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    const CItemOverlap::CScope ofItem(overlap, 0);
    const SPlace place{{scene.InUnits(20.0), scene.InUnits(5.0)}, 0};
    for (uint64_t nSeed = 0; nSeed < 20; ++nSeed) {
        EXPECT_EQ(Refined(overlap, place, nSeed).m_Place.m_At, place.m_At);
    }
}

TEST(PlaceRefiner, MovesAnItemOutOfASmallOverlap) {
    CMoveScene scene({support::Copies(support::Box(10.0, 10.0), 2)}, {40.0, 0.0, 0.0}, 40.0, 1);
    scene.Put(1, 20.0, 20.0);
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    const CItemOverlap::CScope ofItem(overlap, 0);
    for (uint64_t nSeed = 0; nSeed < 50; ++nSeed) {
        const SDirection way = DirectionOf(static_cast<double>(nSeed * 7));
        const SPlace place{{scene.InUnits(20.0 + 9.0 * way.m_Cosine), scene.InUnits(20.0 + 9.0 * way.m_Sine)},
                           0};
        const SCandidate to = Refined(overlap, place, nSeed);
        EXPECT_EQ(to.m_Value, 0.0);
        EXPECT_LT(Length(to.m_Place.m_At - place.m_At), scene.InUnits(10.0)) << "not far";
    }
}

TEST(PlaceRefiner, PutsAnItemExactlyIntoAGapAsLargeAsItIs) {
    CMoveScene scene({support::Copies(support::Box(10.0, 10.0), 9)}, {30.0, 0.0, 0.0}, 30.0, 1);
    for (int i = 0; i < 9; ++i) {
        scene.Put(static_cast<size_t>(i), 5.0 + 10.0 * (i % 3), 5.0 + 10.0 * (i / 3));
    }
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    const CItemOverlap::CScope ofItem(overlap, 4);
    const SPoint gap{scene.InUnits(15.0), scene.InUnits(15.0)};
    for (uint64_t nSeed = 0; nSeed < 50; ++nSeed) {
        const SPlace from{scene.DrawAround(gap, 1.5), scene.VersionsOf(4).front()};
        const SCandidate to = Refined(overlap, from, nSeed);
        EXPECT_EQ(to.m_Value, 0.0);
        EXPECT_LE(Length(to.m_Place.m_At - gap), 2.0 * scene.Slack());
    }
}

}  // namespace

}  // namespace nestrix
