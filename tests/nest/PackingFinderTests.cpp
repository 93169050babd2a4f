#include "nest/CPackingFinder.h"

#include <gtest/gtest.h>

#include "tests/nest/FreeSets.h"
#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

constexpr SFreeStrip STRIP{20.0, 0.0, 0.0};
constexpr SEffort EFFORT{{40, 2}};
constexpr double NEVER_LOW_ENOUGH = 0.0;

/// Four squares of which two fit beside each other, all laid into one corner.
class PackingFinder : public testing::Test {
protected:
    explicit PackingFinder(uint64_t nSteps = 10'000)
        : m_Limit(1, nSteps, [] { return false; }), m_Steps(m_Limit, 0, 1'000'000, [] {}) {}

    [[nodiscard]] double Units(double length) const { return length / m_Problem.Grid().Length(1); }

    std::optional<SSolution> Find(double height, double lowEnough = NEVER_LOW_ENOUGH) {
        return m_Finder.Find(m_InOneCorner, Units(height), EFFORT, Units(lowEnough));
    }

    std::vector<SPiece> m_Pieces{support::Copies(support::Box(10, 10), 4)};
    CPackProblem m_Problem{m_Pieces, STRIP, true};
    CFieldTable m_Fields{m_Problem};
    std::vector<SPlace> m_InOneCorner{4, SPlace{{0.0, 0.0}, 0}};
    CRandom m_Random{1};
    CStepLimit m_Limit;
    CStepCounter m_Steps;
    CPackingFinder m_Finder{m_Problem, m_Fields, m_InOneCorner, m_Random, m_Steps};
};

class PackingFinderWithoutSteps : public PackingFinder {
protected:
    PackingFinderWithoutSteps() : PackingFinder(0) {}
};

TEST_F(PackingFinder, FindsAPackingThatIsAsLowAsTheStrip) {
    const std::optional<SSolution> found = Find(20.0);
    ASSERT_TRUE(found);
    EXPECT_DOUBLE_EQ(found->m_Height, Units(20.0));
    EXPECT_EQ(found->m_Height, HeightOf(m_Problem, found->m_Places));
    EXPECT_EQ(support::FaultOf(m_Pieces, PackingOf(m_Problem, *found)), "");
}

TEST_F(PackingFinder, FindsTheLowestThereIsWhereTheStripIsTooLow) {
    const std::optional<SSolution> found = Find(19.9);
    ASSERT_TRUE(found);
    EXPECT_DOUBLE_EQ(found->m_Height, Units(20.0));
}

TEST_F(PackingFinder, FindsNothingWhereTheStripIsFarTooLow) {
    EXPECT_FALSE(Find(12.0));
}

TEST_F(PackingFinder, LeavesNothingOfOneSearchForTheNext) {
    EXPECT_TRUE(Find(20.0));
    EXPECT_FALSE(Find(12.0));
}

TEST_F(PackingFinder, TellsWhatIsLeftWhereItFindsNothing) {
    ASSERT_FALSE(Find(12.0));
    const SFailure failure = m_Finder.Failure();
    EXPECT_LE(HeightOf(m_Problem, failure.m_Places), Units(12.0));
    EXPECT_GT(failure.m_Overlap, 0.0);
    CLayout layout(m_Problem, m_Fields, failure.m_Places);
    layout.Assign(failure.m_Places, Units(12.0));
    EXPECT_EQ(failure.m_Overlap, CSeparator(layout, m_Random, m_Steps).MeasureOverlap());
}

TEST_F(PackingFinder, EndsAtOnceWithAPackingThatIsLowEnough) {
    ASSERT_TRUE(Find(19.9));
    const uint64_t nPatient = m_Steps.Steps();
    ASSERT_TRUE(Find(19.9, 20.1));
    EXPECT_LT(m_Steps.Steps() - nPatient, nPatient / 2);
}

TEST_F(PackingFinderWithoutSteps, FindsNothing) {
    EXPECT_FALSE(Find(20.0));
}

}  // namespace

}  // namespace nestrix
