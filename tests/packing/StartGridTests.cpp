#include "packing/drop/CStartGrid.h"

#include <gtest/gtest.h>

#include <limits>

#include "tests/support/FamilyParameter.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// The grid at the starting height against the sweeps, obstacle by obstacle.

namespace {

using support::CSeededRandom;
using support::RandomCases;
using support::SFamily;

constexpr float STRIP_WIDTH = 400.0F;
constexpr float LARGEST_X = 2000.0F;
constexpr float START = 30000.0F;

/// Polygons that lie across each other around the starting height, and one that starts to fall among them.
class CCrowd {
public:
    CCrowd(CSeededRandom& random, const SFamily& family)
        : m_Polygons(MakeSet(random, family, random.Range(2, 40))), m_Profiles(m_Polygons, LARGEST_X) {
        if (!m_Profiles.IsComplete()) {
            return;
        }
        m_Grid.Reset({0.0F, STRIP_WIDTH}, {START - 60.0F, START + 60.0F},
                     static_cast<size_t>(random.Range(1, 60)), static_cast<size_t>(random.Range(1, 30)), 100);
        const float fMiddle = random.Between(0.0F, STRIP_WIDTH);
        for (size_t i = 0; i < m_Polygons.size(); ++i) {
            const float fX = fMiddle + random.Between(-40.0F, 40.0F);
            const float fY =
                START + (random.Percent(20) ? random.Quarter(-80, 20) : random.Between(-8.0F, 1.0F));
            SDrop drop{static_cast<int>(i), {fX, fY, 0.0F}, {}};
            drop.m_Box = WorldBox(m_Polygons[i], drop.m_ReferencePoint);
            m_Drops.push_back(drop);
        }
        SDrop& falling = m_Drops.back();
        falling.m_ReferencePoint.y = START;
        falling.m_Box = WorldBox(m_Polygons.back(), falling.m_ReferencePoint);
        m_nAfter = random.Percent(70) ? -1 : random.Range(0, static_cast<int>(m_Drops.size()) - 1);
        for (size_t i = 0; i + 1 < m_Drops.size(); ++i) {
            m_nTaken += m_Grid.Takes(Back(i)) ? 1 : 0;
            if (m_Grid.Takes(Back(i))) {
                m_Grid.Insert(Back(i), static_cast<int>(i));
            }
        }
    }

    [[nodiscard]] bool IsUsable() const { return m_Profiles.IsComplete(); }
    [[nodiscard]] size_t CountTaken() const { return m_nTaken; }

    [[nodiscard]] float FindFallByGrid(float fCut) const {
        const SObstacles obstacles{m_Drops.back().m_Box, m_Drops, m_nAfter};
        return m_Grid.FindLanding(Front(), {fCut, SLanding::FLOOR}, obstacles, nullptr).m_fFall;
    }

    [[nodiscard]] float FindFallBySweeps(float fCut) const {
        const SObstacles obstacles{m_Drops.back().m_Box, m_Drops, m_nAfter};
        for (size_t i = 0; i + 1 < m_Drops.size(); ++i) {
            if (m_Grid.Takes(Back(i)) && obstacles.Contain(static_cast<int>(i))) {
                fCut = FindGap(Front(), Back(i), fCut);
            }
        }
        return fCut;
    }

private:
    [[nodiscard]] SMovedHalf Back(size_t nDrop) const {
        const mgVector3& at = m_Drops[nDrop].m_ReferencePoint;
        return {m_Profiles.Of(static_cast<int>(nDrop)).m_Back, at.x, at.y};
    }
    [[nodiscard]] SMovedHalf Front() const {
        const mgVector3& at = m_Drops.back().m_ReferencePoint;
        return {m_Profiles.Of(static_cast<int>(m_Drops.size()) - 1).m_Front, at.x, at.y};
    }

    std::vector<CPolygon> m_Polygons;
    CProfileSet m_Profiles;
    CStartGrid m_Grid;
    std::vector<SDrop> m_Drops;
    int m_nAfter = -1;
    size_t m_nTaken = 0;
};

class StartGrid : public testing::TestWithParam<SFamily> {};

TEST_P(StartGrid, FindsTheGapsOfTheSweeps) {
    size_t nTaken = 0;
    size_t nStopped = 0;
    for (int nSeed = 0; nSeed < RandomCases(1000); ++nSeed) {
        CSeededRandom random(static_cast<uint64_t>(nSeed));
        const CCrowd crowd(random, GetParam());
        if (!crowd.IsUsable()) {
            continue;
        }
        nTaken += crowd.CountTaken();
        const float fSmallest = crowd.FindFallBySweeps(START);
        nStopped += fSmallest < START ? 1 : 0;
        for (const float fCut : {START, fSmallest, 0.0F, -1.0F,
                                 std::nextafter(fSmallest, std::numeric_limits<float>::infinity())}) {
            ASSERT_EQ(crowd.FindFallByGrid(fCut), crowd.FindFallBySweeps(fCut))
                << "seed " << nSeed << ", gaps below " << fCut;
        }
    }
    EXPECT_GT(nTaken, 0U);
    EXPECT_GT(nStopped, 0U);
}

INSTANTIATE_TEST_SUITE_P(All, StartGrid,
                         testing::ValuesIn(support::AllFamilies().begin(), support::AllFamilies().end()),
                         support::FamilyTestName);

}  // namespace

}  // namespace nestrix
