#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/CCurve.h"
#include "drawing/Flattening.h"
#include "packing/PointVectors.h"
#include "tests/drawing/DrawnShapes.h"
#include "tests/drawing/PathSamples.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using std::numbers::pi;
using support::CSeededRandom;
using support::DrawnCircle;
using support::RandomCases;
using support::SamplesOf;

/// Each point of a curve is on the material's side of an edge that is near it. A curve may come near itself
/// and even cross itself, so that other edges are near, too.
void ExpectOnSide(const SCurveTo& curve, SPoint start, ESide eMaterial, double tolerance) {
    const SPath path{start, {curve}, false};
    const CRing ring = FlattenedAway(path, eMaterial, tolerance);
    for (const SPoint sample : SamplesOf(path, 3000)) {
        double least = HUGE_VAL;
        for (size_t i = 0; i + 1 < ring.size(); ++i) {
            if (DistanceOf(sample, ring[i], ring[i + 1]) <= tolerance + 1e-9) {
                const SPoint along = ring[i + 1] - ring[i];
                const double left = Cross(along, sample - ring[i]) / Length(along);
                least = std::min(least, eMaterial == ESide::LEFT ? -left : left);
            }
        }
        EXPECT_LE(least, 1e-9);
    }
}

TEST(FlattenedCurves, HaveAllOfThemOnOneSide) {
    CSeededRandom random(12);
    const auto point = [&random] { return SPoint{random.Between(0, 100), random.Between(0, 100)}; };
    for (int i = 0; i < RandomCases(100); ++i) {
        const SPoint start = point();
        const SCurveTo curve{point(), point(), point()};
        ExpectOnSide(curve, start, random.Percent(50) ? ESide::LEFT : ESide::RIGHT, 0.05);
    }
}

TEST(FlattenedCurves, MayHaveACusp) {
    for (const ESide eSide : {ESide::LEFT, ESide::RIGHT}) {
        for (const double offset : {0.0, 1e-12, 1e-9, 1e-6, 1e-3, -1e-12, -1e-9, -1e-6, -1e-3}) {
            const SCurveTo curve{{100 + offset, 100}, {0, 100}, {100, 0}};
            ExpectOnSide(curve, {0, 0}, eSide, 0.05);
            EXPECT_LE(FlattenedAway({{0, 0}, {curve}, false}, eSide, 0.05).size(), 100U) << offset;
        }
    }
}

TEST(FlattenedCurves, MayHaveALoop) {
    for (const ESide eSide : {ESide::LEFT, ESide::RIGHT}) {
        ExpectOnSide({{150, 100}, {-50, 100}, {100, 0}}, {0, 0}, eSide, 0.05);
    }
}

TEST(FlattenedCurves, MayBeginInOneOfTheirControlPoints) {
    for (const ESide eSide : {ESide::LEFT, ESide::RIGHT}) {
        ExpectOnSide({{0, 0}, {50, 100}, {100, 0}}, {0, 0}, eSide, 0.05);
        ExpectOnSide({{50, 100}, {100, 0}, {100, 0}}, {0, 0}, eSide, 0.05);
        ExpectOnSide({{0, 0}, {100, 30}, {100, 30}}, {0, 0}, eSide, 0.05);
        ExpectOnSide({{0, 0}, {0, 0}, {100, 30}}, {0, 0}, eSide, 0.05);
    }
}

TEST(FlattenedCurves, MayBeStraight) {
    const SPath straight{{0, 0}, {SCurveTo{{3, 3}, {6, 6}, {9, 9}}, SLineTo{{0, 9}}}, true};
    EXPECT_EQ(FlattenedAway(straight, ESide::LEFT, 0.05), (CRing{{0, 0}, {9, 9}, {0, 9}}));
    // This one runs on to 12 and comes back.
    const SPath beyond{{0, 0}, {SCurveTo{{16, 0}, {16, 0}, {0, 0}}, SLineTo{{0, 9}}}, true};
    EXPECT_EQ(FlattenedAway(beyond, ESide::LEFT, 0.05), (CRing{{0, 0}, {12, 0}, {0, 0}, {0, 9}}));
    const SPath flat{{2, 0}, {SArcTo{{0, 0}, {2, 0}, {0, 0}, 0, 2 * pi, {2, 0}}}, true};
    EXPECT_EQ(FlattenedAway(flat, ESide::LEFT, 0.05).size(), 2U);
}

TEST(FlattenedCurves, MayBeAPoint) {
    const SPath point{{1, 2}, {SCurveTo{{1, 2}, {1, 2}, {1, 2}}}, true};
    EXPECT_EQ(FlattenedAway(point, ESide::LEFT, 0.05), (CRing{{1, 2}}));
}

TEST(FlattenedCurves, HaveNoMorePointsThanNeeded) {
    // So many edges a curve needs: each takes a turn of sqrt(8 · tolerance · curvature), inside or outside.
    CSeededRandom random(13);
    for (int i = 0; i < RandomCases(100); ++i) {
        const SPoint start{0, 0};
        const double height = random.Between(5, 60);
        const SCurveTo bow{{random.Between(0, 40), height}, {random.Between(60, 100), height}, {100, 0}};
        const double tolerance = random.Pick({0.5, 0.05, 0.002});
        const CCurve curve(start, bow);
        double needed = 0.0;
        for (int k = 0; k < 1000; ++k) {
            const double t = (k + 0.5) / 1000;
            const SPoint first = curve.First(t);
            const double speed = Length(first);
            const double curvature = std::abs(Cross(first, curve.Second(t))) / (speed * speed * speed);
            needed += std::sqrt(curvature / (8 * tolerance)) * speed / 1000;
        }
        for (const ESide eSide : {ESide::LEFT, ESide::RIGHT}) {
            const CRing ring = FlattenedAway({start, {bow}, false}, eSide, tolerance);
            EXPECT_LE(static_cast<double>(ring.size() - 1), 1.2 * needed + 3.0);
        }
    }
}

TEST(FlattenedCurves, KeepTheirCorners) {
    // A half-disc: the corners at both ends of its arc are where they were drawn.
    const SPath half{{-5, 0}, {SLineTo{{5, 0}}, SArcTo{{0, 0}, {5, 0}, {0, 5}, 0, pi, {-5, 0}}}, true};
    const CRing ring = FlattenedAway(half, ESide::LEFT, 0.05);
    EXPECT_EQ(ring[0], (SPoint{-5, 0}));
    EXPECT_EQ(ring[1], (SPoint{5, 0}));
    EXPECT_EQ(ring[2].m_X, 5.0) << "along the tangent";
}

TEST(FlattenedCurves, HaveNoCornerWhereAnArcGoesOnAsALine) {
    const SPath slot{{-5, -2},
                     {SLineTo{{5, -2}}, SArcTo{{5, 0}, {2, 0}, {0, 2}, -pi / 2, pi, {5, 2}}, SLineTo{{-5, 2}},
                      SArcTo{{-5, 0}, {2, 0}, {0, 2}, pi / 2, pi, {-5, -2}}},
                     true};
    for (const SPoint point : FlattenedAway(slot, ESide::LEFT, 0.05)) {
        EXPECT_GT(std::abs(point.m_X), 5.1);
    }
}

TEST(FlattenedCurves, OfAnySizeHaveNoMorePointsThanFitTheMemory) {
    EXPECT_LE(FlattenedAway(DrawnCircle({0, 0}, 1e90), ESide::LEFT, 0.05).size(), 30000U);
    EXPECT_LE(FlattenedAway(DrawnCircle({0, 0}, 5), ESide::LEFT, 0.0).size(), 30000U);
    EXPECT_LE(FlattenedAway(DrawnCircle({0, 0}, 5), ESide::LEFT, -1.0).size(), 30000U);
    for (const double second : {4.0, 5.0}) {
        const SArcTo wound{{0, 0}, {5, 0}, {0, second}, 0, 1e300, {5, 0}};
        EXPECT_LE(FlattenedAway({{5, 0}, {wound}, true}, ESide::LEFT, 0.05).size(), 100U);
        const SArcTo far{{0, 0}, {5, 0}, {0, second}, 1e17, 1, {5, 0}};
        EXPECT_LE(FlattenedAway({{5, 0}, {far}, true}, ESide::LEFT, 0.05).size(), 100U);
    }
}

}  // namespace

}  // namespace nestrix
