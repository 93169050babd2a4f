#include <gmock/gmock.h>

#include <string>

#include "nest/CRounds.h"

namespace nestrix {

namespace {

using EStep = CRounds::EStep;

/// What a worker does who asks each time he has taken so many steps: A begins afresh, s stays, g goes on.
std::string Course(CRounds rounds, uint64_t nSteps, int nTimes) {
    std::string course;
    for (int i = 0; i < nTimes; ++i) {
        switch (rounds.Next(static_cast<uint64_t>(i) * nSteps)) {
            case EStep::BEGIN_AFRESH:
                course += 'A';
                break;
            case EStep::STAY:
                course += 's';
                break;
            case EStep::GO_ON:
                course += 'g';
                break;
        }
    }
    return course;
}

TEST(Rounds, BeginAfreshFourTimesAndGoOnForAsLong) {
    EXPECT_EQ(Course({10, 1, false}, 100'000, 16), "AsAsAsAsgggggggg");
}

TEST(Rounds, HaveRunsTwiceAsLongAsTheLastUpToALimit) {
    EXPECT_EQ(Course({10, 1, false}, 200'000, 8 + 12 + 20 + 8),
              "AAAAggggAsAsAsAsggggAsssAsssAsssAsssggggAsssAsss");
}

TEST(Rounds, AreLateWhenARunHasTakenTheStepsOfAFirstOne) {
    CRounds rounds(10, 1, false);
    EXPECT_EQ(rounds.Next(0), EStep::BEGIN_AFRESH);
    EXPECT_FALSE(rounds.IsLate(199'999));
    EXPECT_TRUE(rounds.IsLate(200'000));
    EXPECT_EQ(rounds.Next(200'000), EStep::BEGIN_AFRESH);
    EXPECT_FALSE(rounds.IsLate(399'999));
    EXPECT_TRUE(rounds.IsLate(1'000'000));
}

TEST(Rounds, AreSharedByTheWorkers) {
    EXPECT_EQ(Course({10, 2, false}, 200'000, 6), "AAggAs");
    EXPECT_EQ(Course({10, 3, false}, 200'000, 6), "AAggAs");
    EXPECT_EQ(Course({10, 9, false}, 200'000, 6), "AgAsgg");
}

TEST(Rounds, AreLongerWithMoreItems) {
    EXPECT_EQ(Course({20, 1, false}, 200'000, 16), "AsAsAsAsgggggggg");
}

TEST(Rounds, DoNotLoseARunToALongWalk) {
    EXPECT_EQ(Course({10, 1, false}, 500'000, 9), "AAAAggAAA");
}

TEST(Rounds, BeginOnceWhereThereIsAPackingToGoOnFrom) {
    EXPECT_EQ(Course({10, 1, true}, 200'000, 20), 'A' + std::string(19, 'g'));
}

}  // namespace

}  // namespace nestrix
