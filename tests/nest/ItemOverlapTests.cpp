#include "nest/CItemOverlap.h"

#include <gtest/gtest.h>

#include "tests/nest/CMoveScene.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CMoveScene;
using support::RandomCases;

constexpr SFreeStrip STRIP{80.0, 1.0, 2.0};
constexpr double HEIGHT = 60.0;

double WeightOf(const CPairWeights& weights, size_t nItem, size_t nOther) {
    for (const CPairWeights::SWeight& weight : weights.RowOf(nItem)) {
        if (weight.m_nOther == nOther) {
            return weight.m_Weight;
        }
    }
    return 1.0;
}

/// All others asked one after the other. The moved item's own size is the same for all and left out.
double PlainValue(CMoveScene& scene, const CItemOverlap& overlap, const SPlace& place) {
    const CLayout& layout = scene.Layout();
    const size_t nItem = overlap.Item();
    double value = 0.0;
    for (size_t nOther = 0; nOther < layout.Count(); ++nOther) {
        if (nOther != nItem) {
            const SPlace& other = layout.PlaceOf(nOther);
            const double scale = overlap.ScaleOf(nItem, nOther) / std::sqrt(overlap.ScaleOf(nItem, nItem));
            value += scale * WeightOf(scene.Weights(), nItem, nOther) *
                     layout.Fields().DepthOf(place.m_nVersion, place.m_At, other.m_nVersion, other.m_At);
        }
    }
    return value;
}

TEST(ItemOverlap, IsTheSumOfAllDepthsByWeightAndSizeOfTheOthers) {
    CMoveScene scene(support::MixedSet(), STRIP, HEIGHT, 1);
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    int nOverlapping = 0;
    for (int i = 0; i < RandomCases(2000); ++i) {
        const size_t nItem = scene.Random().Index(scene.Layout().Count());
        overlap.Begin(nItem);
        const SPlace place = scene.DrawPlace(nItem);
        const double plain = PlainValue(scene, overlap, place);
        ASSERT_NEAR(overlap.ValueAt(place, HUGE_VAL), plain, 1e-12 * plain);
        nOverlapping += plain > 0.0 ? 1 : 0;
        overlap.End();
    }
    EXPECT_GT(nOverlapping, RandomCases(2000) / 2);
}

TEST(ItemOverlap, IsExactBelowTheLimitAndAtLeastTheLimitElse) {
    CMoveScene scene(support::MixedSet(), STRIP, HEIGHT, 2);
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    int nInexact = 0;
    for (int i = 0; i < RandomCases(2000); ++i) {
        const size_t nItem = scene.Random().Index(scene.Layout().Count());
        overlap.Begin(nItem);
        const SPlace place = scene.DrawPlace(nItem);
        const double exact = overlap.ValueAt(place, HUGE_VAL);
        const double limit = static_cast<double>(scene.Random().Between(0.1F, 1.5F)) * exact;
        const double answer = overlap.ValueAt(place, limit);
        ASSERT_LE(answer, exact * (1.0 + 1e-12));
        ASSERT_TRUE(answer == exact || answer >= limit * (1.0 - 1e-12)) << answer << " of " << exact;
        nInexact += answer < exact ? 1 : 0;
        overlap.End();
    }
    EXPECT_GT(nInexact, RandomCases(2000) / 8);
}

TEST(ItemOverlap, OfOneItemLeavesNothingBehindForTheNext) {
    CMoveScene scene(support::MixedSet(), STRIP, HEIGHT, 3);
    CItemOverlap used(scene.Layout(), scene.Weights());
    for (size_t nItem = 0; nItem < scene.Layout().Count(); ++nItem) {
        used.Begin(nItem);
        CItemOverlap fresh(scene.Layout(), scene.Weights());
        fresh.Begin(nItem);
        for (size_t nOther = 0; nOther < scene.Layout().Count(); ++nOther) {
            ASSERT_EQ(used.FactorOf(nOther), fresh.FactorOf(nOther)) << nItem << " and " << nOther;
        }
        used.End();
    }
}

TEST(ItemOverlap, IsNoLessThanWhatAllFieldsTogetherSayItIsAtLeast) {
    CMoveScene scene(support::MixedSet(), STRIP, HEIGHT, 4);
    CItemOverlap overlap(scene.Layout(), scene.Weights());
    std::vector<SLeastDepths> depths;
    int nPositive = 0;
    for (int i = 0; i < RandomCases(2000); ++i) {
        const size_t nItem = scene.Random().Index(scene.Layout().Count());
        overlap.Begin(nItem);
        const SPlace place = scene.DrawPlace(nItem);
        overlap.CollectLeastDepths(place.m_nVersion, depths);
        ASSERT_EQ(depths.size(), scene.Layout().Count() - 1) << "all others";
        SPlaceBatch batch{};
        batch.m_fX[0] = static_cast<float>(place.m_At.m_X);
        batch.m_fY[0] = static_cast<float>(place.m_At.m_Y);
        SumLeastDepths(depths, batch);
        // Single precision may look some hundred units off: a millionth of the strip's width.
        const double rounding = scene.InUnits(1e-6 * STRIP.m_Width) * static_cast<double>(depths.size());
        ASSERT_LE(static_cast<double>(batch.m_fLeast[0]), overlap.ValueAt(place, HUGE_VAL) + rounding);
        nPositive += batch.m_fLeast[0] > 0.0F ? 1 : 0;
        overlap.End();
    }
    EXPECT_GT(nPositive, RandomCases(2000) / 2);
}

}  // namespace

}  // namespace nestrix
