#include "nest/CFailures.h"

#include <gtest/gtest.h>

#include <array>

namespace nestrix {

namespace {

constexpr size_t MOST = 10;
constexpr int DRAWS = 10'000;

/// How often each was drawn, by its overlap.
std::array<int, MOST> Drawn(const CFailures& failures) {
    CRandom random(1);
    std::array<int, MOST> drawn{};
    for (int i = 0; i < DRAWS; ++i) {
        ++drawn.at(static_cast<size_t>(failures.Draw(random).m_Overlap));
    }
    return drawn;
}

TEST(Failures, AreDrawnTheMoreOftenTheLessTheyOverlap) {
    CFailures failures(MOST);
    for (const double overlap : {3.0, 8.0, 0.0, 9.0, 1.0, 5.0, 2.0, 7.0, 4.0, 6.0}) {
        failures.Keep({overlap, {}});
    }
    const std::array<int, MOST> drawn = Drawn(failures);
    for (size_t i = 1; i < MOST; ++i) {
        EXPECT_LT(drawn[i], drawn[i - 1]);
    }
    EXPECT_NEAR(drawn[0] + drawn[1], 0.52 * DRAWS, 0.02 * DRAWS);
    EXPECT_GT(drawn[MOST - 1], 0);
}

TEST(Failures, ThatOverlapMostMakeRoomForOthers) {
    CFailures failures(2);
    for (const double overlap : {3.0, 1.0, 4.0, 2.0}) {
        failures.Keep({overlap, {}});
    }
    const std::array<int, MOST> drawn = Drawn(failures);
    EXPECT_EQ(drawn[1] + drawn[2], DRAWS);
}

TEST(Failures, KeepTheirPlaces) {
    CFailures failures(MOST);
    failures.Keep({1.0, {SPlace{{3.0, 4.0}, 5}}});
    CRandom random(1);
    const SFailure& drawn = failures.Draw(random);
    ASSERT_EQ(drawn.m_Places.size(), 1U);
    EXPECT_EQ(drawn.m_Places[0].m_At.m_X, 3.0);
    EXPECT_EQ(drawn.m_Places[0].m_nVersion, 5U);
}

TEST(Failures, AreForgotten) {
    CFailures failures(MOST);
    EXPECT_TRUE(failures.IsEmpty());
    failures.Keep({1.0, {}});
    EXPECT_FALSE(failures.IsEmpty());
    failures.Clear();
    EXPECT_TRUE(failures.IsEmpty());
}

}  // namespace

}  // namespace nestrix
