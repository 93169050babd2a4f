#include "nest/CDisturber.h"

#include <gtest/gtest.h>

#include <cmath>
#include <set>
#include <utility>
#include <vector>

#include "packing/PointVectors.h"
#include "tests/nest/FreeSets.h"

using namespace nestrix;
using namespace nestrix::support;

namespace {

/// Ten pieces: four boxes of 20 to 23, and six of 4 by 5 to 10. The larger half are the four and the last.
class Disturber : public testing::Test {
protected:
    static constexpr size_t LARGE = 4;
    static constexpr int DRAWS = 3000;

    Disturber() {
        for (size_t i = 0; i < LARGE; ++i) {
            const double side = 20.0 + static_cast<double>(i);
            m_Pieces.push_back(Copies(Box(side, side + 1.0), 1, {0.0, 90.0}));
        }
        for (int i = 0; i < 6; ++i) {
            m_Pieces.push_back(Box(4.0, 5.0 + i));
        }
    }

    [[nodiscard]] static std::vector<SPlace> Row(const CPackProblem& problem, double apart) {
        std::vector<SPlace> places;
        for (size_t i = 0; i < problem.Items().size(); ++i) {
            places.push_back(
                {{apart * static_cast<double>(i), 0.0}, problem.VersionsOf(problem.Items()[i])[0]});
        }
        return places;
    }

    [[nodiscard]] static bool AreSame(const SPlace& a, const SPlace& b) {
        return a.m_At.m_X == b.m_At.m_X && a.m_At.m_Y == b.m_At.m_Y && a.m_nVersion == b.m_nVersion;
    }

    /// The items that have another place.
    [[nodiscard]] static std::vector<size_t> Changed(const std::vector<SPlace>& before,
                                                     const std::vector<SPlace>& after) {
        std::vector<size_t> changed;
        for (size_t i = 0; i < before.size(); ++i) {
            if (!AreSame(before[i], after[i])) {
                changed.push_back(i);
            }
        }
        return changed;
    }

    [[nodiscard]] static double ItemSize(const CPackProblem& problem) {
        return std::sqrt(problem.TotalArea() / static_cast<double>(problem.Items().size()));
    }

    std::vector<SPiece> m_Pieces;
    CRandom m_Random{1};
};

}  // namespace

TEST_F(Disturber, ExchangesLargeItemsWhereverAndSmallOnesNever) {
    const CPackProblem problem(m_Pieces, {1000.0}, true);
    CDisturber disturber(problem, m_Random);
    const std::vector<SPlace> places = Row(problem, 10.0 * ItemSize(problem));
    std::set<std::vector<size_t>> exchanged;
    for (int i = 0; i < DRAWS; ++i) {
        const std::vector<SPlace> after = disturber.Disturbed(places);
        const std::vector<size_t> changed = Changed(places, after);
        if (changed.size() == 2) {
            exchanged.insert(changed);
            EXPECT_TRUE(AreSame({places[changed[0]].m_At, places[changed[1]].m_nVersion}, after[changed[1]]));
            EXPECT_TRUE(AreSame({places[changed[1]].m_At, places[changed[0]].m_nVersion}, after[changed[0]]));
        }
    }
    EXPECT_EQ(exchanged,
              (std::set<std::vector<size_t>>{
                  {0, 1}, {0, 2}, {0, 3}, {0, 9}, {1, 2}, {1, 3}, {1, 9}, {2, 3}, {2, 9}, {3, 9}}));
}

TEST_F(Disturber, ExchangesSmallItemsThatAreNear) {
    const CPackProblem problem(m_Pieces, {1000.0}, true);
    CDisturber disturber(problem, m_Random);
    const std::vector<SPlace> places = Row(problem, ItemSize(problem));
    std::set<std::vector<size_t>> exchanged;
    for (int i = 0; i < DRAWS; ++i) {
        const std::vector<size_t> changed = Changed(places, disturber.Disturbed(places));
        if (changed.size() == 2 && changed[0] >= LARGE && changed[1] < 9) {
            exchanged.insert(changed);
        }
    }
    EXPECT_EQ(exchanged, (std::set<std::vector<size_t>>{{4, 5}, {5, 6}, {6, 7}, {7, 8}}));
}

TEST_F(Disturber, MovesAnyItemInAnyOfItsVersionsNearAnyOther) {
    const CPackProblem problem(m_Pieces, {1000.0}, true);
    CDisturber disturber(problem, m_Random);
    const double size = ItemSize(problem);
    const std::vector<SPlace> places = Row(problem, 10.0 * size);
    std::set<std::pair<size_t, size_t>> from;  // and where to
    std::set<size_t> versions;                 // of the first item
    for (int i = 0; i < DRAWS; ++i) {
        const std::vector<SPlace> after = disturber.Disturbed(places);
        const std::vector<size_t> changed = Changed(places, after);
        if (changed.size() != 1) {
            continue;
        }
        const size_t nItem = changed.front();
        const double at = after[nItem].m_At.m_X / (10.0 * size);
        const double nearest = std::round(at);
        EXPECT_LE(std::abs(at - nearest), 0.05);
        EXPECT_LE(std::abs(after[nItem].m_At.m_Y), 0.5 * size);
        from.insert({nItem, static_cast<size_t>(nearest)});
        if (nItem == 0) {
            versions.insert(after[nItem].m_nVersion);
        }
    }
    EXPECT_EQ(from.size(), 90U);
    const std::vector<size_t>& allowed = problem.VersionsOf(problem.Items()[0]);
    EXPECT_EQ(versions, std::set<size_t>(allowed.begin(), allowed.end()));
}

TEST_F(Disturber, ExchangesNoCopiesOfOnePiece) {
    const std::vector<SPiece> pieces{Copies(Box(20.0, 30.0), 5)};
    const CPackProblem problem(pieces, {1000.0}, true);
    CDisturber disturber(problem, m_Random);
    const std::vector<SPlace> places = Row(problem, ItemSize(problem));
    for (int i = 0; i < DRAWS; ++i) {
        EXPECT_LE(Changed(places, disturber.Disturbed(places)).size(), 1U);
    }
}

TEST_F(Disturber, LeavesOneItemAlone) {
    const std::vector<SPiece> pieces{Copies(Box(20.0, 30.0), 1, {0.0, 90.0})};
    const CPackProblem problem(pieces, {1000.0}, true);
    CDisturber disturber(problem, m_Random);
    const std::vector<SPlace> places = Row(problem, 0.0);
    for (int i = 0; i < DRAWS; ++i) {
        EXPECT_TRUE(Changed(places, disturber.Disturbed(places)).empty());
    }
}
