#include "nest/CPairWeights.h"

#include <gtest/gtest.h>

namespace nestrix {

namespace {

double WeightOf(const CPairWeights& weights, size_t nItem, uint32_t nOther) {
    for (const CPairWeights::SWeight& weight : weights.RowOf(nItem)) {
        if (weight.m_nOther == nOther) {
            return weight.m_Weight;
        }
    }
    return 1.0;
}

using COverlaps = std::vector<SOverlap>;

TEST(PairWeights, AreOneAtFirst) {
    const CPairWeights weights(3);
    EXPECT_TRUE(weights.RowOf(0).empty());
    EXPECT_TRUE(weights.RowOf(2).empty());
}

TEST(PairWeights, GrowWhereItemsOverlapForBothOfThem) {
    CPairWeights weights(4);
    weights.Update(COverlaps{{1, 3, 5.0}});
    EXPECT_GT(WeightOf(weights, 1, 3), 1.0);
    EXPECT_EQ(WeightOf(weights, 1, 3), WeightOf(weights, 3, 1));
    EXPECT_TRUE(weights.RowOf(0).empty());
    EXPECT_TRUE(weights.RowOf(2).empty());
}

TEST(PairWeights, GrowMostWhereItemsOverlapMost) {
    CPairWeights weights(4);
    weights.Update(COverlaps{{0, 1, 1.0}, {2, 3, 5.0}, {0, 2, 3.0}});
    EXPECT_LT(WeightOf(weights, 0, 1), WeightOf(weights, 0, 2));
    EXPECT_LT(WeightOf(weights, 0, 2), WeightOf(weights, 2, 3));
}

TEST(PairWeights, DecayToOneWhereNothingOverlapsAnyMore) {
    CPairWeights weights(4);
    weights.Update(COverlaps{{0, 1, 1.0}});
    const double grown = WeightOf(weights, 0, 1);
    weights.Update(COverlaps{{2, 3, 1.0}});
    EXPECT_LT(WeightOf(weights, 0, 1), grown);
    for (int i = 0; i < 10'000; ++i) {
        weights.Update({});
    }
    EXPECT_TRUE(weights.RowOf(0).empty());
}

TEST(PairWeights, AreOneAgainWhenTheyAreReset) {
    CPairWeights weights(2);
    weights.Update(COverlaps{{0, 1, 1.0}});
    weights.Reset();
    EXPECT_TRUE(weights.RowOf(0).empty());
    EXPECT_TRUE(weights.RowOf(1).empty());
}

TEST(PairWeights, StayFiniteAndKeepTheirOrderHoweverLongItemsOverlap) {
    CPairWeights weights(4);
    for (int i = 0; i < 5'000; ++i) {
        weights.Update(COverlaps{{0, 1, 5.0}, {2, 3, 4.9}});
        ASSERT_LT(WeightOf(weights, 0, 1), 1e15);
        ASSERT_GE(WeightOf(weights, 0, 1), WeightOf(weights, 2, 3));
    }
    EXPECT_GT(WeightOf(weights, 0, 1), 1.0);
}

}  // namespace

}  // namespace nestrix
