#include "nest/CSchedule.h"

#include <gtest/gtest.h>

#include <string>

namespace nestrix {

namespace {

using EStep = CSchedule::EStep;

constexpr double FOUND = 100.0;

char LetterOf(EStep eStep) {
    switch (eStep) {
        case EStep::BEGIN_AFRESH:
            return 'A';
        case EStep::STAY:
            return 's';
        case EStep::GO_ON:
            return 'g';
        case EStep::BREED:
            return 'B';
    }
    return '?';
}

/// What a worker does who asks each time he has taken so many steps, and never finds anything lower.
std::string Course(CSchedule schedule, uint64_t nSteps, int nTimes) {
    std::string course;
    for (int i = 0; i < nTimes; ++i) {
        course += LetterOf(schedule.Next(static_cast<uint64_t>(i) * nSteps, FOUND));
    }
    return course;
}

TEST(Schedule, BeginsAfreshFourTimesAndGoesOnForAsLong) {
    EXPECT_EQ(Course({10, 1, false}, 100'000, 16), "AsAsAsAsgggggggg");
}

TEST(Schedule, BreedsOnceThereIsAPopulation) {
    EXPECT_EQ(Course({10, 1, false}, 100'000, 26), "AsAsAsAsggggggggAsAsAsBsBs");
}

TEST(Schedule, GivesARunThatFoundTheBestAsLongAgain) {
    CSchedule schedule(10, 1, false);
    std::string course;
    // The fourth run bred finds the best, and again when it is given more steps; then no more.
    for (uint64_t i = 0; i < 20; ++i) {
        const double found = i == 15 ? FOUND - 1.0 : i == 16 ? FOUND - 2.0 : i == 17 ? FOUND - 2.0 : FOUND;
        course += LetterOf(schedule.Next(i * 200'000, found));
    }
    EXPECT_EQ(course, "AAAAggggAAABBBBssBBB");
}

TEST(Schedule, IsLateWhenARunHasTakenItsSteps) {
    CSchedule schedule(10, 1, false);
    EXPECT_EQ(schedule.Next(0, FOUND), EStep::BEGIN_AFRESH);
    EXPECT_FALSE(schedule.IsLate(199'999));
    EXPECT_TRUE(schedule.IsLate(200'000));
    EXPECT_EQ(schedule.Next(200'000, FOUND), EStep::BEGIN_AFRESH);
    EXPECT_FALSE(schedule.IsLate(399'999));
    EXPECT_TRUE(schedule.IsLate(1'000'000));
}

TEST(Schedule, IsSharedByTheWorkers) {
    EXPECT_EQ(Course({10, 2, false}, 200'000, 11), "AAggAAAAABB");
    EXPECT_EQ(Course({10, 3, false}, 200'000, 11), "AAggAAAAABB");
    EXPECT_EQ(Course({10, 9, false}, 200'000, 10), "AgAAAAAABB");
}

TEST(Schedule, IsLongerWithMoreItems) {
    EXPECT_EQ(Course({20, 1, false}, 200'000, 16), "AsAsAsAsgggggggg");
}

TEST(Schedule, DoesNotLoseAFirstRunToALongWalk) {
    EXPECT_EQ(Course({10, 1, false}, 500'000, 9), "AAAAggggA");
}

TEST(Schedule, BeginsOnceWhereThereIsAPackingToGoOnFrom) {
    EXPECT_EQ(Course({10, 1, true}, 200'000, 20), 'A' + std::string(19, 'g'));
}

}  // namespace

}  // namespace nestrix
