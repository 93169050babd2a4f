#include "nest/Simplify.h"

#include <gtest/gtest.h>

#include <algorithm>

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

/// The distance of the point of a ring that is farthest from another ring.
double FarthestFrom(const CGridRing& points, const CGridRing& ring) {
    double farthest = 0.0;
    for (const SGridPoint point : points) {
        double nearest = HUGE_VAL;
        for (size_t i = 0; i < ring.size(); ++i) {
            nearest = std::min(
                nearest, DistanceOf(AsPoint(point), AsPoint(ring[i]), AsPoint(ring[(i + 1) % ring.size()])));
        }
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

bool HasAllOf(const CGridRing& ring, const CGridRing& points) {
    return std::all_of(points.begin(), points.end(), [&ring](SGridPoint point) {
        return std::find(ring.begin(), ring.end(), point) != ring.end();
    });
}

TEST(Simplified, LeavesOutWhatIsNearTheLine) {
    const SGridShape shape{{{0, 0}, {500, 3}, {1000, 0}, {1000, 1000}, {500, 1040}, {0, 1000}}, {}};
    const SGridShape simple = Simplified(shape, 5.0);
    EXPECT_EQ(simple.m_Outline.size(), 5U);
    EXPECT_TRUE(HasAllOf(simple.m_Outline, {{500, 1040}}));
}

TEST(Simplified, KeepsAllPointsThatMatter) {
    const SGridShape shape{GridRectangle({0, 0}, 1000, 1000), {GridRectangle({100, 100}, 50, 50)}};
    EXPECT_EQ(Text(Cleaned(Simplified(shape, 10.0))), Text(Cleaned(shape)));
}

TEST(Simplified, NeverCrossesItself) {
    // An arc and a hole along it: left out as both may be, one would run through the other.
    CGridRing outline{{0, 0}, {1000, 0}, {1000, 400}};
    CGridRing hole{{500, 200}};
    for (int i = 9; i >= 1; --i) {
        outline.push_back({100 * i, 400 - 4 * i * (10 - i)});
        hole.push_back({100 * i, 392 - 4 * i * (10 - i)});
    }
    outline.push_back({0, 400});
    const SGridShape shape = Cleaned(SGridShape{outline, {hole}});
    ASSERT_FALSE(CrossesItself(shape));
    for (const double tolerance : {3.0, 10.0, 30.0, 100.0, 300.0}) {
        EXPECT_FALSE(CrossesItself(Simplified(shape, tolerance))) << tolerance;
    }
}

TEST(Simplified, KeepsThinParts) {
    const SGridShape shape{{{0, 2000}, {6000, 1000}, {6000, 6000}, {5000, 5000}, {6000, 3000}, {0, 5000}},
                           {}};
    EXPECT_TRUE(HasAllOf(Simplified(shape, 2300.0).m_Outline, {{6000, 6000}}));
}

TEST(Simplified, OfADiscOfFiveThousandVerticesHasAFewOfThem) {
    const SGridShape disc = OnGrid(support::RegularPiece(5000, 100.0).m_Shape, SGrid{-6});
    const SGridShape simple = Simplified(disc, 1e6);
    EXPECT_LT(simple.m_Outline.size(), 50U);
    EXPECT_LE(FarthestFrom(disc.m_Outline, simple.m_Outline), 1e6);
}

TEST(Simplified, RandomShapesKeepPointsOfTheirOwnWithinTheTolerance) {
    CSeededRandom random(1);
    int nSimpler = 0;
    for (int i = 0; i < RandomCases(4000); ++i) {
        const SGridShape shape = Cleaned(support::Scaled(support::RandomSoundShape(random, 9), 1000));
        const double tolerance = random.Range(1, 3000);
        const SGridShape simple = Simplified(shape, tolerance);
        // Shapes that cross themselves in the sense that edges run over each other stay as they are.
        if (CrossesItself(shape)) {
            continue;
        }
        ASSERT_FALSE(CrossesItself(simple)) << Text(shape);
        ASSERT_TRUE(HasAllOf(shape.m_Outline, simple.m_Outline)) << Text(shape);
        ASSERT_LE(FarthestFrom(shape.m_Outline, simple.m_Outline), tolerance) << Text(shape);
        nSimpler += simple.m_Outline.size() < shape.m_Outline.size() ? 1 : 0;
    }
    EXPECT_GT(nSimpler, 100);
}

}  // namespace

}  // namespace nestrix
