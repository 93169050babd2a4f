#include "packing/drop/Sweep.h"

#include <gtest/gtest.h>

#include <algorithm>

#include <cmath>
#include <limits>

#include "tests/reference/ReferenceGeometry.h"
#include "tests/support/FamilyParameter.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

// The sweeps of two profiles against all points and edges tried in turn: what they pass over could not have
// had a smaller gap, however close above the smallest one the search is cut off.

namespace {

using support::CSeededRandom;
using support::EPiece;
using support::RandomCases;
using support::SFamily;

constexpr float NONE = std::numeric_limits<float>::infinity();
constexpr float STRIP_WIDTH = 400.0F;
constexpr float LARGEST_X = 2000.0F;

struct SPair {
    CPolygon m_Falling;
    CPolygon m_Obstacle;
};

/// Calls `visit(start, end, direction)` for every edge of a profile that is not vertical, at its place.
template <class TVisit>
void VisitEdges(const CPolygon& polygon, const std::vector<CLine>& lines, const TVisit& visit) {
    for (const CLine& line : lines) {
        if (line.m_Direction.x != 0.0F) {
            visit(polygon.PositionOf(line.m_nStart) + polygon.m_ReferencePoint,
                  polygon.PositionOf(line.m_nEnd) + polygon.m_ReferencePoint, line.m_Direction);
        }
    }
}

float SmallestGap(const SPair& pair) {
    float fSmallest = NONE;
    for (const CPoint& point : pair.m_Falling.m_FrontPoints) {
        const mgVector3 at = point.m_Position + pair.m_Falling.m_ReferencePoint;
        VisitEdges(pair.m_Obstacle, pair.m_Obstacle.m_BackLines, [&](auto start, auto end, auto direction) {
            float fHit = 0.0F;
            if (reference::DoesPointHitDownward(at, start, end, direction, &fHit)) {
                fSmallest = std::min(fSmallest, at.y - fHit);
            }
        });
    }
    for (const CPoint& point : pair.m_Obstacle.m_BackPoints) {
        const mgVector3 at = point.m_Position + pair.m_Obstacle.m_ReferencePoint;
        VisitEdges(pair.m_Falling, pair.m_Falling.m_FrontLines, [&](auto start, auto end, auto direction) {
            float fHit = 0.0F;
            if (reference::DoesPointHitUpward(at, start, end, direction, &fHit)) {
                fSmallest = std::min(fSmallest, fHit - at.y);
            }
        });
    }
    return fSmallest;
}

/// Two pieces, equal or not, the first as a rule above the second, at offsets that are equal or not.
SPair MakePair(CSeededRandom& random, const SFamily& family) {
    CPolygon falling = support::MakePiece(random, random.Pick(family.m_Pieces));
    CPolygon obstacle =
        random.Percent(50) ? falling : support::MakePiece(random, random.Pick(family.m_Pieces));
    const float fX = random.Pick({0.0F, 40.0F, random.Between(0.0F, STRIP_WIDTH)});
    const float fOtherX = random.Percent(70) ? fX : fX + random.Between(-10.0F, 10.0F);
    const float fOtherY = random.Pick({0.0F, random.Between(0.0F, 100.0F), random.Between(0.0F, 1000.0F)});
    // Mostly near ones, overlapping or not, since small gaps show small errors; some of them on a lattice.
    const float fY = fOtherY + random.Pick({5.0F * random.Quarter(-6, 14), random.Between(0.0F, 70.0F),
                                            random.Between(0.0F, 70.0F), random.Between(0.0F, 3000.0F)});
    return {support::PlacedAt(std::move(falling), fX, fY),
            support::PlacedAt(std::move(obstacle), fOtherX, fOtherY)};
}

SMovedHalf Moved(const SHalfProfile& half, const CPolygon& polygon) {
    return {half, polygon.m_ReferencePoint.x, polygon.m_ReferencePoint.y};
}

class Sweeps : public testing::TestWithParam<SFamily> {};

TEST_P(Sweeps, FindTheSmallestGapWhereverTheyAreCutOffAboveIt) {
    const int nPairs = RandomCases(4000);
    for (int nSeed = 0; nSeed < nPairs && !HasFailure(); ++nSeed) {
        CSeededRandom random(static_cast<uint64_t>(nSeed));
        const SPair pair = MakePair(random, GetParam());
        const std::vector<CPolygon> set = {pair.m_Falling, pair.m_Obstacle};
        const CProfileSet profiles(set, LARGEST_X);
        ASSERT_TRUE(profiles.IsComplete());
        const SMovedHalf front = Moved(profiles.Of(0).m_Front, pair.m_Falling);
        const SMovedHalf back = Moved(profiles.Of(1).m_Back, pair.m_Obstacle);
        const float fGap = SmallestGap(pair);
        const float fJustAbove = std::nextafter(fGap, NONE);
        EXPECT_EQ(FindGap(front, back, NONE), fGap) << "seed " << nSeed;
        EXPECT_EQ(FindGap(front, back, fJustAbove), fGap) << "seed " << nSeed;
        EXPECT_EQ(FindGap(front, back, fGap), fGap) << "seed " << nSeed;
        EXPECT_LE(front.m_Y.m_fLow - back.m_Y.m_fHigh, fGap) << "seed " << nSeed;
        EXPECT_TRUE(fGap == NONE || back.m_Y.m_fLow <= front.m_Y.m_fHigh) << "seed " << nSeed;
    }
}

std::vector<SFamily> RegularFamilies() {
    std::vector<SFamily> families;
    for (const SFamily& family : support::AllFamilies()) {
        const bool bRegular = std::ranges::none_of(family.m_Pieces, [](EPiece piece) {
            return piece == EPiece::NotFinite || piece == EPiece::Endless || piece == EPiece::Huge ||
                   piece == EPiece::Distant;
        });
        if (bRegular) {
            families.push_back(family);
        }
    }
    return families;
}

INSTANTIATE_TEST_SUITE_P(Regular, Sweeps, testing::ValuesIn(RegularFamilies()), support::FamilyTestName);

}  // namespace

}  // namespace nestrix
