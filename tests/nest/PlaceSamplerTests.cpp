#include "nest/CPlaceSampler.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

#include "tests/nest/CMoveScene.h"
#include "tests/nest/FreeSets.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CMoveScene;
using support::RandomCases;

constexpr SFreeStrip STRIP{80.0, 1.0, 2.0};
constexpr double HEIGHT = 34.0;  ///< for sixteen pieces, which need more

/// So many times sixteen pieces in a strip too low for them.
CMoveScene Crowded(int nTimes, uint64_t nSeed) {
    std::vector<SPiece> pieces = support::MixedSet();
    for (SPiece& piece : pieces) {
        piece.m_nQuantity *= nTimes;
    }
    return {std::move(pieces), STRIP, HEIGHT * nTimes, nSeed};
}

/// Few enough that all are asked for lower bounds first, and too many for that.
class PlaceSampler : public testing::TestWithParam<int> {
protected:
    PlaceSampler() : m_Scene(Crowded(GetParam(), 1)), m_Overlap(m_Scene.Layout(), m_Scene.Weights()) {}

    SCandidate FindBest(size_t nItem, uint64_t nSeed) {
        const CItemOverlap::CScope ofItem(m_Overlap, nItem);
        CRandom random(nSeed);
        return CPlaceSampler(m_Overlap, random).FindBest();
    }

    [[nodiscard]] double ValueOf(size_t nItem, const SPlace& place) {
        const CItemOverlap::CScope ofItem(m_Overlap, nItem);
        return m_Overlap.ValueAt(place, HUGE_VAL);
    }

    CMoveScene m_Scene;
    CItemOverlap m_Overlap;
};

INSTANTIATE_TEST_SUITE_P(OfFewItemsAndOfMany, PlaceSampler, testing::Values(1, 9));

TEST_P(PlaceSampler, KnowsTheExactOverlapAtAPlaceInTheRoomOfAVersionOfTheItem) {
    int nOverlapping = 0;
    for (int i = 0; i < RandomCases(400); ++i) {
        const size_t nItem = m_Scene.Random().Index(m_Scene.Layout().Count());
        const SCandidate found = FindBest(nItem, static_cast<uint64_t>(i));
        ASSERT_EQ(found.m_Value, ValueOf(nItem, found.m_Place));
        ASSERT_TRUE(m_Scene.IsInRoom(found.m_Place));
        const std::vector<size_t>& versions = m_Scene.VersionsOf(nItem);
        ASSERT_NE(std::find(versions.begin(), versions.end(), found.m_Place.m_nVersion), versions.end());
        nOverlapping += found.m_Value > 0.0 ? 1 : 0;
    }
    EXPECT_GT(nOverlapping, RandomCases(400) / 2);
}

TEST_P(PlaceSampler, FindsAPlaceNoWorseThanThoseThatItDrawsFirst) {
    // Lower bounds may look a little too far, in single precision.
    const double rounding = m_Scene.InUnits(1e-6 * HEIGHT * GetParam()) * 100.0;
    for (int i = 0; i < RandomCases(400); ++i) {
        const size_t nItem = m_Scene.Random().Index(m_Scene.Layout().Count());
        const SCandidate found = FindBest(nItem, static_cast<uint64_t>(i));
        CRandom same(static_cast<uint64_t>(i));
        const std::vector<size_t>& versions = m_Scene.VersionsOf(nItem);
        for (int nBatch = 0; nBatch < 5; ++nBatch) {
            const size_t nVersion = versions[same.Index(versions.size())];
            const SPlaneBox& room = m_Scene.Layout().RoomFor(nVersion);
            for (size_t k = 0; k < SPlaceBatch::SIZE; ++k) {
                const double x = same.Between(room.m_Low.m_X, room.m_High.m_X);
                const SPoint at{x, same.Between(room.m_Low.m_Y, room.m_High.m_Y)};
                ASSERT_LE(found.m_Value, ValueOf(nItem, {at, nVersion}) + rounding);
            }
        }
    }
}

TEST_P(PlaceSampler, FindsTheSameAgainFromTheSameSeed) {
    std::set<double> found;
    for (uint64_t nSeed = 0; nSeed < 20; ++nSeed) {
        const SCandidate once = FindBest(3, nSeed);
        const SCandidate again = FindBest(3, nSeed);
        EXPECT_EQ(once.m_Place.m_At, again.m_Place.m_At);
        EXPECT_EQ(once.m_Place.m_nVersion, again.m_Place.m_nVersion);
        EXPECT_EQ(once.m_Value, again.m_Value);
        found.insert(Length(once.m_Place.m_At));
    }
    EXPECT_GT(found.size(), 1U) << "from other seeds other places";
}

TEST_P(PlaceSampler, IsNotMisledByWhatItAskedForAnotherItem) {
    CRandom random(1);
    CPlaceSampler used(m_Overlap, random);
    const auto findBest = [&](size_t nItem) {
        const CItemOverlap::CScope ofItem(m_Overlap, nItem);
        return used.FindBest();
    };
    (void)findBest(0);
    for (size_t nItem = 1; nItem < m_Scene.Layout().Count(); ++nItem) {
        random = CRandom(nItem);
        const SCandidate found = findBest(nItem);
        const SCandidate expected = FindBest(nItem, nItem);
        ASSERT_EQ(found.m_Place.m_At, expected.m_Place.m_At);
        ASSERT_EQ(found.m_Value, expected.m_Value);
    }
}

TEST_P(PlaceSampler, HasNoValueInAStripTooLowForTheItem) {
    m_Scene.SetHeight(5.0);
    for (uint64_t nSeed = 0; nSeed < 20; ++nSeed) {
        EXPECT_EQ(FindBest(0, nSeed).m_Value, HUGE_VAL);
    }
}

TEST_P(PlaceSampler, FindsAPlaceWithoutOverlapWhereMostOfTheStripIsFree) {
    m_Scene.SetHeight(5.0 * HEIGHT * GetParam());
    for (uint64_t nSeed = 0; nSeed < 200; ++nSeed) {
        EXPECT_EQ(FindBest(nSeed % m_Scene.Layout().Count(), nSeed).m_Value, 0.0);
    }
}

/// Boxes in three columns, side by side, but for one in the middle, which lies so far from the lower left end
/// of its gap.
class CWall {
public:
    static constexpr int COLUMNS = 3;

    CWall(int nRows, double gap, double off)
        : m_Scene({support::Copies(support::Box(10.0, 10.0), COLUMNS * nRows)}, {2.0 * 10.0 + gap, 0.0, 0.0},
                  (nRows - 1) * 10.0 + gap, 1),
          m_Unweighted(m_Scene.Layout().Count()),
          m_Overlap(m_Scene.Layout(), m_Unweighted) {
        // What is beyond the gap is pushed aside by as much as it is wider than a box.
        const auto middleOf = [gap](int i, int nMiddle) {
            return 5.0 + 10.0 * i + (i > nMiddle ? gap - 10.0 : 0.0);
        };
        for (int nRow = 0; nRow < nRows; ++nRow) {
            for (int nColumn = 0; nColumn < COLUMNS; ++nColumn) {
                m_Scene.Put(static_cast<size_t>(nRow * COLUMNS + nColumn), middleOf(nColumn, 1),
                            middleOf(nRow, nRows / 2));
            }
        }
        m_nItem = static_cast<size_t>(nRows / 2 * COLUMNS + 1);
        m_Scene.Put(m_nItem, middleOf(1, 1) + off, middleOf(nRows / 2, nRows / 2) + off);
    }

    /// In how many of a hundred attempts the gap is found.
    int CountFinds() {
        const CItemOverlap::CScope ofItem(m_Overlap, m_nItem);
        int nFinds = 0;
        for (uint64_t nSeed = 0; nSeed < 100; ++nSeed) {
            CRandom random(nSeed);
            const double value = CPlaceSampler(m_Overlap, random).FindBest().m_Value;
            nFinds += value <= m_Scene.Slack() ? 1 : 0;
        }
        return nFinds;
    }

private:
    CMoveScene m_Scene;
    CPairWeights m_Unweighted;
    CItemOverlap m_Overlap;
    size_t m_nItem = 0;  ///< the one in the wall
};

TEST(PlaceSamplerInAWall, FindsAGapAsLargeAsTheItemWhereItTouchesTheOthers) {
    EXPECT_GT(CWall(3, 10.0, 4.0).CountFinds(), 25);
}

TEST(PlaceSamplerInAWall, FindsAGapThatIsNearOneOfManyItems) {
    EXPECT_GT(CWall(30, 13.0, -1.5).CountFinds(), 80) << "few enough to be ranked";
    EXPECT_GT(CWall(60, 13.0, -1.5).CountFinds(), 80);
}

}  // namespace

}  // namespace nestrix
