#include "packing/CSegmentTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <numbers>
#include <set>
#include <utility>

#include "tests/support/CSeededRandom.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::RandomCases;
using CPairs = std::multiset<std::pair<int, int>>;

/// Whether the segments share a point, on a small grid: exactly.
bool Meet(const SSegment& a, const SSegment& b) {
    const auto side = [](const SSegment& segment, SPoint point) {
        const double turn = Cross(segment.m_To - segment.m_From, point - segment.m_From);
        return turn > 0.0 ? 1 : turn < 0.0 ? -1 : 0;
    };
    const auto range = [](const SSegment& segment) {
        SPlaneBox box;
        box.Include(segment.m_From);
        box.Include(segment.m_To);
        return box;
    };
    return GapOf(range(a), range(b)) <= 0.0 && side(a, b.m_From) * side(a, b.m_To) <= 0 &&
           side(b, a.m_From) * side(b, a.m_To) <= 0;
}

std::vector<SSegment> RandomSegments(CSeededRandom& random, int nCount, int nExtent) {
    std::vector<SSegment> segments;
    const auto point = [&] {
        return SPoint{static_cast<double>(random.Range(0, nExtent)),
                      static_cast<double>(random.Range(0, nExtent))};
    };
    for (int i = 0; i < nCount; ++i) {
        segments.push_back({point(), point(), i});
    }
    return segments;
}

/// Long ones all around a point, like the flanks of a gear's teeth, none of which meet.
std::vector<SSegment> Spokes(int nCount) {
    std::vector<SSegment> spokes;
    for (int i = 0; i < nCount; ++i) {
        const double angle = 2.0 * std::numbers::pi * i / nCount;
        const SPoint outward{std::cos(angle), std::sin(angle)};
        spokes.push_back({outward * 100.0, outward * 150.0, i});
    }
    return spokes;
}

CPairs PairsOf(const CSegmentTree& tree) {
    CPairs pairs;
    tree.VisitPairs([&pairs](int i, int j) {
        pairs.insert(std::minmax(i, j));
        return false;
    });
    return pairs;
}

TEST(SegmentTree, FindsEachPairThatMeetsOnce) {
    CSeededRandom random(1);
    for (int i = 0; i < RandomCases(2000); ++i) {
        const std::vector<SSegment> segments = RandomSegments(random, random.Range(0, 40), 12);
        const CPairs found = PairsOf(CSegmentTree(segments, 0.0));
        for (size_t a = 0; a < segments.size(); ++a) {
            for (size_t b = a + 1; b < segments.size(); ++b) {
                const size_t nFound = found.count({static_cast<int>(a), static_cast<int>(b)});
                ASSERT_LE(nFound, 1U);
                ASSERT_TRUE(nFound == 1 || !Meet(segments[a], segments[b])) << a << " and " << b;
            }
        }
    }
}

TEST(SegmentTree, FindsEachPairOfTwoSetsThatMeetsOnce) {
    CSeededRandom random(2);
    for (int i = 0; i < RandomCases(2000); ++i) {
        const std::vector<SSegment> first = RandomSegments(random, random.Range(0, 30), 12);
        const std::vector<SSegment> second = RandomSegments(random, random.Range(0, 30), 12);
        CPairs found;
        CSegmentTree(first, 0.0).VisitPairs(CSegmentTree(second, 0.0), [&found](int nFirst, int nSecond) {
            found.insert({nFirst, nSecond});
            return false;
        });
        for (const SSegment& a : first) {
            for (const SSegment& b : second) {
                const size_t nFound = found.count({a.m_nIndex, b.m_nIndex});
                ASSERT_LE(nFound, 1U);
                ASSERT_TRUE(nFound == 1 || !Meet(a, b)) << a.m_nIndex << " and " << b.m_nIndex;
            }
        }
    }
}

TEST(SegmentTree, FindsWhatComesAsNearAsItsReach) {
    const SSegment low{{0.0, 0.0}, {10.0, 5.0}, 0};
    const SSegment high{{0.0, 2.0}, {10.0, 7.0}, 1};
    const double apart = 2.0 * std::cos(std::atan2(5.0, 10.0));
    EXPECT_EQ(PairsOf(CSegmentTree({low, high}, apart * 0.999)).size(), 0U);
    EXPECT_EQ(PairsOf(CSegmentTree({low, high}, apart * 1.001)).size(), 1U);
}

TEST(SegmentTree, FindsWhatMeetsFarFromTheOriginInSpiteOfRounding) {
    CSeededRandom random(3);
    for (int i = 0; i < RandomCases(2000); ++i) {
        // One ends in the middle of the other, all but for the rounding of both.
        const SPoint from{random.Range(1, 1'000'000'000) * 0.1, random.Range(1, 1'000'000'000) * 0.1};
        const SPoint along{random.Range(1, 1000) * 0.1, random.Range(1, 1000) * 0.1};
        const SPoint middle = from + along * 0.3;
        const CSegmentTree tree({{from, from + along, 0}, {middle, middle + SPoint{7.0, -9.0}, 1}}, 0.0);
        ASSERT_EQ(PairsOf(tree).size(), 1U);
    }
}

TEST(SegmentTree, StopsWhenTheVisitorHasSeenEnough) {
    CSeededRandom random(4);
    int nSeen = 0;
    EXPECT_TRUE(CSegmentTree(RandomSegments(random, 40, 12), 0.0).VisitPairs([&nSeen](int, int) {
        return ++nSeen == 3;
    }));
    EXPECT_EQ(nSeen, 3);
}

TEST(SegmentTree, TellsLongSegmentsApartWhereverTheyPoint) {
    EXPECT_EQ(PairsOf(CSegmentTree(Spokes(20'000), 0.0)).size(), 0U);
    // Nearer to the next two than the reach on either side.
    const double apart = 100.0 * 2.0 * std::numbers::pi / 20'000;
    EXPECT_EQ(PairsOf(CSegmentTree(Spokes(20'000), 2.5 * apart)).size(), 40'000U);
}

TEST(SegmentTree, OfCopiesOfOnePointFindsThemAll) {
    const SSegment point{{3.0, 4.0}, {3.0, 4.0}, 0};
    EXPECT_EQ(PairsOf(CSegmentTree(std::vector<SSegment>(10, point), 0.0)).size(), 45U);
    EXPECT_EQ(PairsOf(CSegmentTree({}, 0.0)).size(), 0U);
}

}  // namespace

}  // namespace nestrix
