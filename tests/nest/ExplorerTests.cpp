#include "nest/CExplorer.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "nest/FirstPacking.h"
#include "tests/nest/FreeSets.h"

namespace nestrix {

namespace {

/// The pieces of a full square with sides of 60, first laid by their boxes.
class Explorer : public testing::Test {
protected:
    static constexpr double SIDE = 60.0;

    /// @return what was found; that is best if it is lower.
    std::optional<SSolution> Explore(const SSolution& best) {
        std::optional<SSolution> result;
        m_Explorer.Explore(best, [&](const SSolution& found) {
            EXPECT_EQ(support::FaultOf(m_Pieces, PackingOf(m_Problem, found)), "");
            result = found;
            return found.m_Height < best.m_Height;
        });
        return result;
    }

    /// Goes on from each lower packing.
    SSolution Lowest(int nAttempts) {
        SSolution best = m_First;
        for (int i = 0; i < nAttempts; ++i) {
            const std::optional<SSolution> found = Explore(best);
            best = found && found->m_Height < best.m_Height ? *found : best;
        }
        return best;
    }

    std::vector<SPiece> m_Pieces = support::Puzzle();
    CPackProblem m_Problem{m_Pieces, {SIDE, 0.0, 0.0}, true};
    CFieldTable m_Fields{m_Problem};
    SSolution m_First = SolutionOf(m_Problem, FindFirstPacking(m_Problem, nullptr));
    CRandom m_Random{1};
    CStepLimit m_Limit{1, 1'000'000, [] { return false; }};
    CStepCounter m_Steps{m_Limit, 0, 1'000'000, [] {}};
    CPackingFinder m_Finder{m_Problem, m_Fields, m_First.m_Places, m_Random, m_Steps};
    CExplorer m_Explorer{m_Problem, m_Finder, m_Random};
};

TEST_F(Explorer, FillsTheSheet) {
    for (uint64_t nSeed = 1; nSeed <= 3; ++nSeed) {
        m_Random = CRandom(nSeed);
        EXPECT_LT(m_Problem.Grid().Length(1) * Lowest(20).m_Height, SIDE * (1.0 + LEAST_GAIN));
    }
}

TEST_F(Explorer, FindsNothingBelowAFullSheet) {
    const SSolution full = Lowest(20);
    for (int i = 0; i < 3; ++i) {
        const std::optional<SSolution> found = Explore(full);
        EXPECT_FALSE(found && found->m_Height < full.m_Height);
    }
}

TEST_F(Explorer, BeginsAtWhatIsLeftOfAFailure) {
    const SSolution full = Lowest(20);
    SSolution elsewhere = full;
    std::ranges::reverse(elsewhere.m_Places);
    std::vector<double> left;
    for (const SSolution& next : {full, elsewhere}) {
        (void)Explore(m_First);
        m_Random = CRandom(7);
        (void)Explore(full);
        (void)Explore(next);
        left.push_back(m_Finder.Failure().m_Overlap);
    }
    EXPECT_EQ(left[0], left[1]);
}

TEST_F(Explorer, BeginsAtAnotherBestAsIfNothingHadFailed) {
    m_Random = CRandom(7);
    const std::optional<SSolution> fresh = Explore(m_First);
    (void)Explore(Lowest(20));
    m_Random = CRandom(7);
    const std::optional<SSolution> after = Explore(m_First);
    ASSERT_TRUE(fresh && after);
    EXPECT_EQ(after->m_Height, fresh->m_Height);
}

}  // namespace

}  // namespace nestrix
