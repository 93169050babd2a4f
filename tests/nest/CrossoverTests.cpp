#include "nest/CCrossover.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>
#include <vector>

#include "tests/nest/FreeSets.h"

namespace nestrix {

namespace {

constexpr double WIDTH = 1000.0;
constexpr size_t COUNT = 12;
constexpr int DRAWS = 300;

/// Twelve boxes, each wider than the last. Packings are rows, so that a line across any direction cuts off
/// some at one end.
class Crossover : public testing::Test {
protected:
    explicit Crossover(const std::vector<double>& turns = {0.0, 180.0}) {
        for (size_t i = 0; i < COUNT; ++i) {
            m_Pieces.push_back(
                support::Copies(support::RightTriangle(10.0 + static_cast<double>(i), 10.0), 1, turns));
        }
    }

    static double Apart(const CPackProblem& problem) {
        return static_cast<double>(problem.Strip().m_nWidth) / 2.0 / COUNT;
    }

    /// @param slots of each item, half of them to the right of where the others are.
    static SSolution Row(const CPackProblem& problem, const std::vector<size_t>& slots, double aside) {
        SSolution row{100.0 * Apart(problem), {}};
        for (size_t i = 0; i < slots.size(); ++i) {
            const double x = (static_cast<double>(slots[i]) + aside) * Apart(problem);
            row.m_Places.push_back({{x, row.m_Height / 4.0}, problem.VersionsOf(problem.Items()[i])[0]});
        }
        return row;
    }

    static bool AreSame(const SPlace& a, const SPlace& b) {
        return a.m_At.m_X == b.m_At.m_X && a.m_At.m_Y == b.m_At.m_Y && a.m_nVersion == b.m_nVersion;
    }

    /// Which of the items lie as in a packing.
    static std::vector<size_t> TakenFrom(const SSolution& packing, const std::vector<SPlace>& places) {
        std::vector<size_t> taken;
        for (size_t i = 0; i < places.size(); ++i) {
            if (AreSame(places[i], packing.m_Places[i])) {
                taken.push_back(i);
            }
        }
        return taken;
    }

    std::vector<SPiece> m_Pieces;
    CRandom m_Random{1};
    const std::vector<size_t> m_InOrder{0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11};
    const std::vector<size_t> m_Mixed{7, 2, 11, 4, 9, 0, 5, 10, 1, 8, 3, 6};
};

/// The same with pieces that stay as they are.
class CrossoverWithoutTurns : public Crossover {
protected:
    CrossoverWithoutTurns() : Crossover({0.0}) {}
};

TEST_F(CrossoverWithoutTurns, KeepsOneEndOfTheFirstPacking) {
    const CPackProblem problem(m_Pieces, {WIDTH}, true);
    CCrossover crossover(problem, m_Random);
    const SSolution first = Row(problem, m_InOrder, 0.0);
    const SSolution second = Row(problem, m_Mixed, 0.5);
    std::set<std::vector<size_t>> kept;
    for (int i = 0; i < DRAWS; ++i) {
        kept.insert(TakenFrom(first, crossover.Cross(first, second)));
    }
    bool bLeft = false;
    bool bRight = false;
    for (const std::vector<size_t>& items : kept) {
        ASSERT_FALSE(items.empty());
        EXPECT_EQ(items.back() - items.front() + 1, items.size());
        bLeft = bLeft || items.front() == 0;
        bRight = bRight || items.back() == COUNT - 1;
        EXPECT_TRUE(items.front() == 0 || items.back() == COUNT - 1);
        double area = 0.0;
        for (const size_t nItem : items) {
            area += problem.AreaOf(problem.Items()[nItem]);
        }
        EXPECT_GE(area, 0.3 * problem.TotalArea());
        EXPECT_LE(area, 0.7 * problem.TotalArea() + problem.AreaOf(COUNT - 1));
    }
    EXPECT_TRUE(bLeft && bRight);
}

TEST_F(CrossoverWithoutTurns, TakesTheRestFromBeyondTheLineOrPutsItThere) {
    const CPackProblem problem(m_Pieces, {WIDTH}, true);
    CCrossover crossover(problem, m_Random);
    const SSolution first = Row(problem, m_InOrder, 0.0);
    const SSolution second = Row(problem, m_Mixed, 0.5);
    for (int i = 0; i < DRAWS; ++i) {
        const std::vector<SPlace> places = crossover.Cross(first, second);
        const std::vector<size_t> kept = TakenFrom(first, places);
        const bool bLeft = kept.front() == 0;
        const double line = first.m_Places[bLeft ? kept.back() : kept.front()].m_At.m_X;
        std::set<double> used;
        double least = 0.0;
        for (size_t nItem = 0; nItem < COUNT; ++nItem) {
            if (std::ranges::find(kept, nItem) != kept.end()) {
                continue;
            }
            const double own = second.m_Places[nItem].m_At.m_X;
            const double x = places[nItem].m_At.m_X;
            EXPECT_TRUE(bLeft ? x > line : x < line);
            EXPECT_TRUE(used.insert(x).second);
            if (bLeft ? own > line : own < line) {
                EXPECT_EQ(x, own);
                continue;
            }
            const auto instead = std::ranges::find_if(
                kept, [&](size_t nKept) { return second.m_Places[nKept].m_At.m_X == x; });
            ASSERT_NE(instead, kept.end());
            EXPECT_GT(problem.AreaOf(*instead), least) << "the larger in place of the larger";
            least = problem.AreaOf(*instead);
        }
    }
}

TEST_F(CrossoverWithoutTurns, PutsAnywhereWhatHasNoPlace) {
    const CPackProblem problem(m_Pieces, {WIDTH}, true);
    CCrossover crossover(problem, m_Random);
    const SSolution first = Row(problem, m_InOrder, 0.0);
    const SSolution second = Row(problem, std::vector<size_t>(COUNT, 0), -1.0);
    const auto width = static_cast<double>(problem.Strip().m_nWidth);
    bool bElsewhere = false;
    for (int i = 0; i < DRAWS; ++i) {
        for (const SPlace& place : crossover.Cross(first, second)) {
            const bool bOfSecond = place.m_At.m_X == second.m_Places[0].m_At.m_X;
            EXPECT_TRUE(bOfSecond || (place.m_At.m_X >= 0.0 && place.m_At.m_X <= width));
            EXPECT_TRUE(place.m_At.m_Y >= 0.0 && place.m_At.m_Y <= first.m_Height);
            bElsewhere = bElsewhere || place.m_At.m_Y != first.m_Places[0].m_At.m_Y;
        }
    }
    EXPECT_TRUE(bElsewhere);
}

TEST_F(CrossoverWithoutTurns, TakesAnyCopyForAnother) {
    const std::vector<SPiece> pieces{support::Copies(support::Box(10.0, 20.0), COUNT)};
    const CPackProblem problem(pieces, {WIDTH}, true);
    CCrossover crossover(problem, m_Random);
    const SSolution first = Row(problem, m_InOrder, 0.0);
    const SSolution second = Row(problem, m_Mixed, 0.5);
    for (int i = 0; i < DRAWS; ++i) {
        std::set<double> slots;
        for (const SPlace& place : crossover.Cross(first, second)) {
            slots.insert(place.m_At.m_X / Apart(problem));
            EXPECT_EQ(place.m_At.m_Y, first.m_Places[0].m_At.m_Y);
        }
        EXPECT_EQ(slots.size(), COUNT);
    }
}

TEST_F(Crossover, TurnsTheSecondPackingByAHalfEveryOtherTime) {
    const CPackProblem problem(m_Pieces, {WIDTH}, true);
    CCrossover crossover(problem, m_Random);
    const SSolution first = Row(problem, m_InOrder, 0.0);
    const SSolution second = Row(problem, m_Mixed, 0.5);
    const auto width = static_cast<double>(problem.Strip().m_nWidth);
    SSolution turned = second;
    for (size_t i = 0; i < COUNT; ++i) {
        SPlace& place = turned.m_Places[i];
        place = {SPoint{width, turned.m_Height} - place.m_At, problem.VersionsOf(problem.Items()[i])[1]};
    }
    int nTurned = 0;
    int nNot = 0;
    for (int i = 0; i < DRAWS; ++i) {
        const std::vector<SPlace> places = crossover.Cross(first, second);
        nTurned += TakenFrom(turned, places).empty() ? 0 : 1;
        nNot += TakenFrom(second, places).empty() ? 0 : 1;
    }
    EXPECT_GT(nTurned, DRAWS / 5);
    EXPECT_GT(nNot, DRAWS / 5);
}

TEST_F(Crossover, TurnsNothingWhereAPieceMayNotBeTurnedSo) {
    m_Pieces.push_back(support::Copies(support::RightTriangle(30.0, 20.0), 1, {0.0, 90.0}));
    const CPackProblem problem(m_Pieces, {WIDTH}, true);
    CCrossover crossover(problem, m_Random);
    std::vector<size_t> slots = m_InOrder;
    slots.push_back(COUNT);
    const SSolution row = Row(problem, slots, 0.0);
    for (int i = 0; i < DRAWS; ++i) {
        EXPECT_EQ(TakenFrom(row, crossover.Cross(row, row)).size(), COUNT + 1);
    }
}

}  // namespace

}  // namespace nestrix
