#include "nest/CIncumbent.h"

#include <gtest/gtest.h>

#include "tests/nest/CPackingLog.h"

namespace nestrix {

namespace {

const std::vector<SPiece> SQUARES{support::Copies(support::Box(10, 10), 2)};

class Incumbent : public testing::Test {
protected:
    /// The second square beside the first, so much higher.
    [[nodiscard]] SFreePacking Packing(double x, double y) const {
        const SGrid grid = m_Problem.Grid();
        return m_Problem.PackingOf(std::vector<SFreePlacement>{
            {0, false, 0.0, {0, 0}}, {0, false, 0.0, {grid.Count(x), grid.Count(y)}}});
    }

    CPackProblem m_Problem{SQUARES, {40.0, 0.0, 0.0}, true};
    SPackLimits m_Limits;
    support::CPackingLog m_Log;
    CIncumbent m_Incumbent{m_Problem, m_Limits, m_Log};
};

TEST_F(Incumbent, IsThereOnceAPackingWasOffered) {
    EXPECT_FALSE(m_Incumbent.Best());
    EXPECT_TRUE(m_Incumbent.Offer(Packing(12, 5), 7));
    EXPECT_EQ(m_Incumbent.Best()->m_nHeight, m_Problem.Grid().Count(15));
    ASSERT_EQ(m_Log.Progress().size(), 1U);
    EXPECT_EQ(m_Log.Progress()[0].m_nSteps, 7U);
    EXPECT_DOUBLE_EQ(m_Log.Progress()[0].m_Density, 200.0 / (40 * 15));
}

TEST_F(Incumbent, IsNeverAPackingThatIsNotValid) {
    EXPECT_FALSE(m_Incumbent.Offer(Packing(9.99999, 5), 0));
    EXPECT_FALSE(m_Incumbent.Offer(Packing(31, 5), 0));
    EXPECT_FALSE(m_Incumbent.Best());
    EXPECT_TRUE(m_Log.Packings().empty());
}

TEST_F(Incumbent, ChangesForALowerPackingOnly) {
    EXPECT_TRUE(m_Incumbent.Offer(Packing(12, 5), 0));
    EXPECT_TRUE(m_Incumbent.Offer(Packing(12, 6), 0));
    EXPECT_TRUE(m_Incumbent.Offer(Packing(20, 5), 0));
    EXPECT_EQ(m_Log.Packings().size(), 1U);
    EXPECT_TRUE(m_Incumbent.Offer(Packing(20, 4), 0));
    EXPECT_EQ(m_Log.Packings().size(), 2U);
    EXPECT_EQ(m_Incumbent.Best()->m_Placed, Packing(20, 4).m_Placed);
}

TEST_F(Incumbent, EndsTheSearchOnceItIsAsLowAsAskedFor) {
    m_Limits.m_TargetHeight = 15.0;
    EXPECT_TRUE(m_Incumbent.Offer(Packing(12, 5.00001), 0));
    EXPECT_FALSE(m_Incumbent.IsLowEnough(Packing(12, 5.00001)));
    EXPECT_EQ(m_Incumbent.Reason(), EPackEnd::STEPS);
    EXPECT_TRUE(m_Incumbent.Offer(Packing(12, 5), 0));
    EXPECT_TRUE(m_Incumbent.IsLowEnough(Packing(12, 5)));
    EXPECT_EQ(m_Incumbent.Reason(), EPackEnd::TARGET);
    EXPECT_FALSE(m_Incumbent.IsToEnd());  // other threads go on as far as their steps say
}

TEST_F(Incumbent, KeepsTheFirstReasonToEnd) {
    m_Limits.m_Seconds = 0.0;
    EXPECT_TRUE(m_Incumbent.IsToEnd());
    m_Limits.m_TargetHeight = 100.0;
    EXPECT_TRUE(m_Incumbent.Offer(Packing(12, 5), 0));
    EXPECT_EQ(m_Incumbent.Reason(), EPackEnd::SECONDS);
}

}  // namespace

}  // namespace nestrix
