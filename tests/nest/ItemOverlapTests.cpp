#include "nest/CItemOverlap.h"

#include <gtest/gtest.h>

#include "tests/nest/CMoveScene.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CMoveScene;
using support::RandomCases;

/// Items of a scene at places in their rooms, many times.
class CTrials {
public:
    explicit CTrials(uint64_t nSeed)
        : m_Scene(support::MixedScene(nSeed)), m_Overlap(m_Scene.Layout(), m_Scene.Weights()) {}

    static int Count() { return RandomCases(2000); }

    /// Calls visit(place of an item) in each of them.
    template <class TVisit>
    void Make(TVisit&& visit) {
        for (int i = 0; i < Count() && !testing::Test::HasFatalFailure(); ++i) {
            const CItemOverlap::CScope ofItem(m_Overlap, m_Scene.Random().Index(m_Scene.Layout().Count()));
            visit(m_Scene.DrawPlace(m_Overlap.Item()));
        }
    }

    CMoveScene m_Scene;
    CItemOverlap m_Overlap;
};

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
    CTrials trials(1);
    int nOverlapping = 0;
    trials.Make([&](const SPlace& place) {
        const double plain = PlainValue(trials.m_Scene, trials.m_Overlap, place);
        ASSERT_NEAR(trials.m_Overlap.ValueAt(place, HUGE_VAL), plain, 1e-12 * plain);
        nOverlapping += plain > 0.0 ? 1 : 0;
    });
    EXPECT_GT(nOverlapping, CTrials::Count() / 2);
}

TEST(ItemOverlap, IsExactBelowTheLimitAndAtLeastTheLimitElse) {
    CTrials trials(2);
    int nInexact = 0;
    trials.Make([&](const SPlace& place) {
        const double exact = trials.m_Overlap.ValueAt(place, HUGE_VAL);
        const double limit = static_cast<double>(trials.m_Scene.Random().Between(0.1F, 1.5F)) * exact;
        const double answer = trials.m_Overlap.ValueAt(place, limit);
        ASSERT_LE(answer, exact * (1.0 + 1e-12));
        ASSERT_TRUE(answer == exact || answer >= limit * (1.0 - 1e-12)) << answer << " of " << exact;
        nInexact += answer < exact ? 1 : 0;
    });
    EXPECT_GT(nInexact, CTrials::Count() / 8);
}

TEST(ItemOverlap, OfOneItemLeavesNothingBehindForTheNext) {
    CMoveScene scene = support::MixedScene(3);
    CItemOverlap used(scene.Layout(), scene.Weights());
    for (size_t nItem = 0; nItem < scene.Layout().Count(); ++nItem) {
        const CItemOverlap::CScope ofItem(used, nItem);
        CItemOverlap fresh(scene.Layout(), scene.Weights());
        const CItemOverlap::CScope freshOfItem(fresh, nItem);
        for (size_t nOther = 0; nOther < scene.Layout().Count(); ++nOther) {
            ASSERT_EQ(used.FactorOf(nOther), fresh.FactorOf(nOther)) << nItem << " and " << nOther;
        }
    }
}

TEST(ItemOverlap, IsNoLessThanWhatAllFieldsTogetherSayItIsAtLeast) {
    CTrials trials(4);
    const size_t nOthers = trials.m_Scene.Layout().Count() - 1;
    // Single precision may look some hundred units off: a millionth of the strip's width.
    const double rounding = trials.m_Scene.InUnits(1e-6 * 80.0) * static_cast<double>(nOthers);
    std::vector<SLeastDepths> depths;
    int nPositive = 0;
    trials.Make([&](const SPlace& place) {
        trials.m_Overlap.CollectLeastDepths(place.m_nVersion, depths);
        ASSERT_EQ(depths.size(), nOthers);
        SPlaceBatch batch{};
        batch.m_fX[0] = static_cast<float>(place.m_At.m_X);
        batch.m_fY[0] = static_cast<float>(place.m_At.m_Y);
        SumLeastDepths(depths, batch);
        const double least = static_cast<double>(batch.m_fLeast[0]);
        ASSERT_LE(least, trials.m_Overlap.ValueAt(place, HUGE_VAL) + rounding);
        nPositive += least > 0.0 ? 1 : 0;
    });
    EXPECT_GT(nPositive, CTrials::Count() / 2);
}

}  // namespace

}  // namespace nestrix
