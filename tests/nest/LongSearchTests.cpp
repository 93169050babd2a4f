#include <gtest/gtest.h>

#include "tests/nest/CPackingLog.h"

namespace nestrix {

namespace {

/// More than both threads need to fill their populations, and breed.
constexpr uint64_t STEPS = 7'500'000;

TEST(LongSearch, ThatBreedsGivesTheSameValidPackingEachTime) {
    const auto pack = [] {
        return support::PackAndExamine(support::MixedSet(), {90.0, 0.0, 0.0},
                                       support::StepSettings(STEPS, 2));
    };
    const SPackResult first = pack();
    const SPackResult second = pack();
    EXPECT_TRUE(first.m_Packing->m_Placed == second.m_Packing->m_Placed);
    EXPECT_EQ(first.m_nSteps, STEPS);
    EXPECT_EQ(second.m_nSteps, STEPS);
}

}  // namespace

}  // namespace nestrix
