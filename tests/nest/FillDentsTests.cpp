#include "nest/FillDents.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "certify/Certify.h"
#include "nest/GridGeometry.h"
#include "packing/PointVectors.h"
#include "tests/support/FreePieces.h"
#include "tests/support/GridShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::CSeededRandom;
using support::GridRectangle;
using support::RandomCases;
using support::Text;

/// How often a ray from the point to the right crosses the ring.
int CountCrossings(const CGridRing& ring, SGridPoint point) {
    int nCrossings = 0;
    for (size_t i = 0; i < ring.size(); ++i) {
        SGridPoint low = ring[i];
        SGridPoint high = ring[(i + 1) % ring.size()];
        if (low.m_nY > high.m_nY) {
            std::swap(low, high);
        }
        if (low.m_nY <= point.m_nY && point.m_nY < high.m_nY && Turn(low, high, point) > 0) {
            ++nCrossings;
        }
    }
    return nCrossings;
}

bool IsInside(const SGridShape& shape, SGridPoint point) {
    int nCrossings = CountCrossings(shape.m_Outline, point);
    for (const CGridRing& hole : shape.m_Holes) {
        nCrossings += CountCrossings(hole, point);
    }
    return nCrossings % 2 != 0;
}

TEST(DentsFilled, FillsShallowOnesOnly) {
    const SGridShape shape{
        {{0, 0}, {500, 5}, {1000, 0}, {1000, 1000}, {600, 1000}, {550, 400}, {500, 1000}, {0, 1000}}, {}};
    EXPECT_EQ(Text(DentsFilled(shape, 5.0)),
              Text({{{1000, 1000}, {600, 1000}, {550, 400}, {500, 1000}, {0, 1000}, {0, 0}, {1000, 0}}, {}}));
    EXPECT_EQ(DentsFilled(shape, 4.0).m_Outline.size(), 8U);
    EXPECT_EQ(DentsFilled(shape, 600.0).m_Outline.size(), 4U);
}

TEST(DentsFilled, CountsWhatWasFilledBefore) {
    // A hollow of many points, each of which is next to the line between its neighbours.
    CGridRing ring{{0, 0}, {2000, 0}, {2000, 1500}};
    for (int nX = 1950; nX >= 50; nX -= 50) {
        const int nFromMiddle = nX - 1000;
        ring.push_back({nX, 500 + nFromMiddle * nFromMiddle / 1000});
    }
    ring.push_back({0, 1500});
    const SGridShape filled = DentsFilled({ring, {}}, 100.0);
    EXPECT_LT(filled.m_Outline.size(), 12U);
    EXPECT_FALSE(IsInside(filled, {1000, 601}));
}

TEST(DentsFilled, FillsAHoleRatherThanTurnItOver) {
    // Without its tip, the rest of the arrow head would be a hole where there was none.
    CGridRing head{{0, 0}, {500, 500}, {1000, 0}, {500, 1000}};
    for (size_t i = 0; i < head.size(); ++i) {
        std::rotate(head.begin(), head.begin() + 1, head.end());
        const SGridShape shape = Cleaned(SGridShape{GridRectangle({-100, -100}, 1200, 1200), {head}});
        const SGridShape filled = DentsFilled(shape, 2000.0);
        EXPECT_TRUE(IsInside(filled, {500, 300})) << Text(filled);
        EXPECT_TRUE(IsSound(filled)) << Text(filled);
    }
}

TEST(DentsFilled, OfARaggedDiscHasFewPoints) {
    const SGridShape disc = Cleaned(OnGrid(support::Star(5000, 99.9, 100.0).m_Shape, SGrid{-6}));
    EXPECT_LT(DentsFilled(disc, 5e5).m_Outline.size(), 5001U);
    EXPECT_EQ(DentsFilled(disc, 1e4).m_Outline.size(), disc.m_Outline.size());
}

TEST(DentsFilled, RandomShapesKeepAllThatWasInside) {
    CSeededRandom random(1);
    int nSimpler = 0;
    for (int i = 0; i < RandomCases(4000); ++i) {
        const SGridShape shape = Cleaned(support::Scaled(support::RandomSoundShape(random, 12), 1000));
        const SGridShape filled = DentsFilled(shape, random.Range(1, 5000));
        ASSERT_TRUE(IsSound(filled)) << Text(shape);
        for (int k = 0; k < 40; ++k) {
            const SGridPoint point{random.Range(0, 12'000), random.Range(0, 12'000)};
            ASSERT_TRUE(!IsInside(shape, point) || IsInside(filled, point))
                << Text(shape) << " filled: " << Text(filled) << " at " << point.m_nX << ", " << point.m_nY;
        }
        nSimpler += filled.m_Outline.size() < shape.m_Outline.size() ? 1 : 0;
    }
    EXPECT_GT(nSimpler, 100);
}

}  // namespace

}  // namespace nestrix
