#include "nest/CStepCounter.h"

#include <gtest/gtest.h>

#include <atomic>
#include <thread>

namespace nestrix {

namespace {

constexpr uint64_t FAR = 1'000'000;

bool Never() {
    return false;
}

TEST(StepCounter, TakesAsManyStepsAsTheLimitAllows) {
    for (const uint64_t nMost : {0U, 1U, 3U, 4U, 5U, 1000U}) {
        CStepLimit limit(1, nMost, Never);
        CStepCounter steps(limit, 0, FAR, [] {});
        while (steps.Take()) {
        }
        EXPECT_EQ(steps.Steps(), nMost);
        EXPECT_TRUE(steps.IsOver());
        EXPECT_EQ(limit.Steps(), nMost);
    }
}

TEST(StepCounter, MeetsBeforeEachStepThatFollowsSoMany) {
    CStepLimit limit(1, 10, Never);
    std::vector<uint64_t> met;
    CStepCounter* pSteps = nullptr;
    CStepCounter steps(limit, 0, 4, [&] { met.push_back(pSteps->Steps()); });
    pSteps = &steps;
    while (steps.Take()) {
    }
    EXPECT_EQ(met, (std::vector<uint64_t>{4, 8}));
}

TEST(StepLimit, EndsSoonAfterItIsTold) {
    bool bToEnd = false;
    CStepLimit limit(1, CStepLimit::NEVER, [&bToEnd] { return bToEnd; });
    CStepCounter steps(limit, 0, FAR, [] {});
    for (int i = 0; i < 101; ++i) {
        ASSERT_TRUE(steps.Take());
    }
    bToEnd = true;
    while (steps.Take()) {
    }
    EXPECT_LE(steps.Steps(), 101 + 2 * CStepLimit::QUANTUM);
    EXPECT_EQ(limit.Steps(), steps.Steps());
}

TEST(StepLimit, EndsWhereTheFirstToFinishSaysWhateverTheirSpeed) {
    static constexpr uint64_t FOUND[] = {5'002, 4'800, 4'999, 9'000};
    for (int nRound = 0; nRound < 20; ++nRound) {
        CStepLimit limit(std::size(FOUND), CStepLimit::NEVER, Never);
        std::vector<uint64_t> taken(std::size(FOUND));
        {
            std::vector<std::jthread> threads;
            for (size_t i = 0; i < taken.size(); ++i) {
                threads.emplace_back([&limit, &taken, nRound, i] {
                    CStepCounter steps(limit, i, FAR, [] {});
                    while (steps.Take()) {
                        if (steps.Steps() == FOUND[i]) {
                            steps.Finish();
                        }
                        if (static_cast<int>(i) == nRound % 4) {
                            std::this_thread::yield();
                        }
                    }
                    taken[i] = steps.Steps();
                });
            }
        }
        EXPECT_EQ(taken, std::vector<uint64_t>(4, 4'800 + CStepLimit::LEAD + CStepLimit::QUANTUM));
    }
}

TEST(StepCounter, TakesNoFurtherStepAloneOnceItHasFinished) {
    CStepLimit limit(1, FAR, Never);
    CStepCounter steps(limit, 0, FAR, [] {});
    while (steps.Take()) {
        if (steps.Steps() == 7) {
            steps.Finish();
        }
    }
    EXPECT_EQ(steps.Steps(), 7U);
    EXPECT_EQ(limit.Steps(), 7U);
}

TEST(StepLimit, GivesAllThreadsTheSameNumberOfStepsWhateverTheirSpeed) {
    constexpr size_t WORKERS = 4;
    for (int nRound = 0; nRound < 20; ++nRound) {
        std::atomic<int> nAsked = 0;
        CStepLimit limit(WORKERS, CStepLimit::NEVER,
                         [&nAsked, nRound] { return ++nAsked > 20 + 3 * nRound; });
        std::vector<uint64_t> taken(WORKERS);
        {
            std::vector<std::jthread> threads;
            for (size_t i = 0; i < WORKERS; ++i) {
                threads.emplace_back([&limit, &taken, i] {
                    CStepCounter steps(limit, i, FAR, [] {});
                    while (steps.Take()) {
                        for (size_t k = 0; k < i; ++k) {
                            std::this_thread::yield();
                        }
                    }
                    taken[i] = steps.Steps();
                });
            }
        }
        EXPECT_EQ(taken, std::vector<uint64_t>(WORKERS, limit.Steps()));
        EXPECT_GT(limit.Steps(), 0U);
    }
}

TEST(StepLimit, EndsAheadOfTheFastestWorkerWhenTheSlowestHearsOfTheEnd) {
    bool bToEnd = false;
    CStepLimit limit(2, CStepLimit::NEVER, [&bToEnd] { return bToEnd; });
    CStepCounter fast(limit, 0, FAR, [] {});
    CStepCounter slow(limit, 1, FAR, [] {});
    for (int i = 0; i < 103; ++i) {
        ASSERT_TRUE(fast.Take());
    }
    ASSERT_TRUE(slow.Take());
    bToEnd = true;
    while (slow.Take()) {
    }
    while (fast.Take()) {
    }
    EXPECT_EQ(slow.Steps(), fast.Steps());
    EXPECT_EQ(slow.Steps(), limit.Steps());
}

TEST(StepLimit, EndsTheOthersWhereAThreadHasFailed) {
    CStepLimit limit(2, CStepLimit::NEVER, Never);
    CStepCounter steps(limit, 1, FAR, [] {});
    ASSERT_TRUE(steps.Take());
    limit.Abort();
    for (uint64_t i = 1; i < CStepLimit::QUANTUM; ++i) {
        ASSERT_TRUE(steps.Take());
    }
    EXPECT_FALSE(steps.Take());
}

}  // namespace

}  // namespace nestrix
