#include "mpi/SSearchOrder.h"

#include <gtest/gtest.h>

#include <limits>

namespace nestrix {

namespace {

SSearchOrder Order() {
    SSearchOrder order;
    order.m_Strip = {33.3, 0.1, 0.2};
    order.m_Pieces.push_back(
        {"", {{{0, 0}, {1e-9, 0.1}, {-3, 7}}, {{{0.5, 0.5}, {1, 1}, {0, 1}}, {}}}, 3, {}, true});
    order.m_Pieces.push_back({"", {{{1, 2}, {3, 4}, {5, 7}}, {}}, 0, {true, {}}, false});
    order.m_Settings.m_nSeed = std::numeric_limits<uint64_t>::max();
    order.m_Settings.m_nThreads = 5;
    order.m_Settings.m_bUseHoles = false;
    order.m_Settings.m_Limits.m_nSteps = std::numeric_limits<uint64_t>::max();
    order.m_Settings.m_Limits.m_TargetDensity = 0.9;
    order.m_Settings.m_Limits.m_Patience = 0.0;
    order.m_Start = SFreePacking{order.m_Strip, GridFor(33.3), {{1, true, 12.5, {-4, 1L << 45}}, {}}, 123};
    return order;
}

void ExpectTheSame(const SSearchOrder& order) {
    const SSearchOrder read = ReadOrder(WordsOf(order));
    EXPECT_EQ(read.m_Pieces, order.m_Pieces);
    EXPECT_EQ(read.m_Strip, order.m_Strip);
    EXPECT_EQ(read.m_Start, order.m_Start);
    EXPECT_EQ(read.m_Settings.m_nSeed, order.m_Settings.m_nSeed);
    EXPECT_EQ(read.m_Settings.m_nThreads, order.m_Settings.m_nThreads);
    EXPECT_EQ(read.m_Settings.m_bUseHoles, order.m_Settings.m_bUseHoles);
    const SPackLimits& limits = read.m_Settings.m_Limits;
    EXPECT_EQ(limits.m_nSteps, order.m_Settings.m_Limits.m_nSteps);
    EXPECT_EQ(limits.m_Seconds, order.m_Settings.m_Limits.m_Seconds);
    EXPECT_EQ(limits.m_TargetHeight, order.m_Settings.m_Limits.m_TargetHeight);
    EXPECT_EQ(limits.m_TargetDensity, order.m_Settings.m_Limits.m_TargetDensity);
    EXPECT_EQ(limits.m_Patience, order.m_Settings.m_Limits.m_Patience);
}

}  // namespace

TEST(SearchOrder, IsTheSameOnEveryRank) {
    ExpectTheSame(Order());
}

TEST(SearchOrder, WithoutAStartOrPiecesIsOneToo) {
    ExpectTheSame({});
}

TEST(SearchOrder, CutOffIsReadAsFarAsItGoes) {
    const CWords words = WordsOf(Order());
    for (size_t nWords = 0; nWords < words.size(); ++nWords) {
        EXPECT_LE(
            ReadOrder({words.begin(), words.begin() + static_cast<std::ptrdiff_t>(nWords)}).m_Pieces.size(),
            2U);
    }
}

}  // namespace nestrix
