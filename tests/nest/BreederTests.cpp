#include "nest/CBreeder.h"

#include <gtest/gtest.h>

#include <optional>
#include <set>
#include <vector>

#include "nest/FirstPacking.h"
#include "tests/nest/FreeSets.h"

namespace nestrix {

namespace {

/// Sixteen pieces, first laid by their boxes.
class Breeder : public testing::Test {
protected:
    SSolution Separated(double height) {
        const std::optional<SSolution> found =
            m_Finder.Find(m_First.m_Places, m_First.m_Height * height, BEGINNING, m_First.m_Height * height);
        EXPECT_TRUE(found);
        return found.value_or(m_First);
    }

    std::vector<SPiece> m_Pieces = support::MixedSet();
    CPackProblem m_Problem{m_Pieces, {100.0, 0.0, 0.0}, true};
    CFieldTable m_Fields{m_Problem};
    SSolution m_First = SolutionOf(m_Problem, FindFirstPacking(m_Problem, nullptr));
    CRandom m_Random{1};
    CStepLimit m_Limit{1, 1'000'000, [] { return false; }};
    CStepCounter m_Steps{m_Limit, 0, 1'000'000, [] {}};
    CPackingFinder m_Finder{m_Problem, m_Fields, m_First.m_Places, m_Random, m_Steps};
    CBreeder m_Breeder{m_Problem, m_Finder, m_Random};
};

TEST_F(Breeder, NeedsTwoPackings) {
    EXPECT_FALSE(m_Breeder.Breed());
    m_Breeder.Enter(m_First);
    m_Breeder.Enter(m_First);
    EXPECT_FALSE(m_Breeder.Breed());
    m_Breeder.Enter(Separated(0.9));
    EXPECT_TRUE(m_Breeder.Breed());
}

TEST_F(Breeder, MakesValidPackingsNotMuchHigherThanBoth) {
    m_Breeder.Enter(m_First);
    m_Breeder.Enter(Separated(0.9));
    std::set<double> heights;
    for (int i = 0; i < 20; ++i) {
        const std::optional<SSolution> bred = m_Breeder.Breed();
        ASSERT_TRUE(bred);
        EXPECT_EQ(support::FaultOf(m_Pieces, PackingOf(m_Problem, *bred)), "");
        EXPECT_LE(bred->m_Height, 1.16 * m_First.m_Height);
        heights.insert(bred->m_Height);
    }
    EXPECT_GT(heights.size(), 5U);
}

}  // namespace

}  // namespace nestrix
