#include "drawing/Flattening.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/Crossings.h"
#include "drawing/PathArea.h"
#include "drawing/SDrawnPiece.h"
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

double DistanceToRing(SPoint point, const std::vector<SPoint>& ring) {
    double least = HUGE_VAL;
    for (size_t i = 0; i < ring.size(); ++i) {
        least = std::min(least, DistanceOf(point, ring[i], ring[(i + 1) % ring.size()]));
    }
    return least;
}

/// Whether the ring goes round a point, by the angles under which it is seen.
bool IsInside(SPoint point, const CRing& ring) {
    double turn = 0.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SPoint a = ring[i] - point;
        const SPoint b = ring[(i + 1) % ring.size()] - point;
        turn += std::atan2(Cross(a, b), Dot(a, b));
    }
    return std::abs(turn) > pi;
}

/// Of a closed path that does not cross itself: all of it lies in the flattened material or on its border,
/// which is within the tolerance.
void ExpectFlattenedAway(const SPath& path, bool bHole, double tolerance) {
    const ESide eInside = SignedArea(path) > 0.0 ? ESide::LEFT : ESide::RIGHT;
    const ESide eOutside = eInside == ESide::LEFT ? ESide::RIGHT : ESide::LEFT;
    const CRing ring = FlattenedAway(path, bHole ? eOutside : eInside, tolerance);
    // So dense that between two of them the path is hardly bent.
    const std::vector<SPoint> samples = SamplesOf(path, 500);
    double size = 0.0;
    for (const SPoint sample : samples) {
        size = std::max(size, Length(sample - path.m_Start));
    }
    const double rounding = 1e-9 * size;
    for (const SPoint sample : samples) {
        const double distance = DistanceToRing(sample, ring);
        EXPECT_LE(distance, tolerance + rounding);
        EXPECT_TRUE(distance <= rounding || IsInside(sample, ring) != bHole) << distance;
    }
    const double step = size / 100.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SPoint along = ring[(i + 1) % ring.size()] - ring[i];
        const int nSteps = 1 + static_cast<int>(Length(along) / step);
        for (int k = 0; k < nSteps; ++k) {
            const SPoint at = ring[i] + along * (static_cast<double>(k) / nSteps);
            EXPECT_LE(DistanceToRing(at, samples), tolerance + 2e-5 * size);
        }
    }
}

TEST(FlattenedCircles, AreRegularPolygonsAround) {
    const CRing ring = FlattenedAway(DrawnCircle({3, 4}, 10), ESide::LEFT, 0.05);
    const double angle = 2 * pi / static_cast<double>(ring.size());
    for (const SPoint point : ring) {
        EXPECT_NEAR(Length(point - SPoint{3, 4}), 10 / std::cos(angle / 2), 1e-9);
        EXPECT_LE(Length(point - SPoint{3, 4}), 10.05);
    }
    EXPECT_EQ(ring.size(), static_cast<size_t>(std::ceil(pi / std::acos(10 / 10.05))));
}

TEST(FlattenedCircles, AreTheSameFromTwoHalves) {
    SPath halves = DrawnCircle({0, 0}, 7);
    const SArcTo whole = std::get<SArcTo>(halves.m_Stretches[0]);
    halves.m_Stretches = {SArcTo{{0, 0}, {7, 0}, {0, 7}, 0, pi, {-7, 0}},
                          SArcTo{{0, 0}, {7, 0}, {0, 7}, pi, pi, {7, 0}}};
    const CRing ring = FlattenedAway(halves, ESide::LEFT, 0.05);
    const CRing once = FlattenedAway(DrawnCircle({0, 0}, 7), ESide::LEFT, 0.05);
    EXPECT_EQ(ring.size(), once.size() + once.size() % 2);
    for (const SPoint point : ring) {
        EXPECT_GE(Length(point), 7.0);
    }
    EXPECT_EQ(whole.m_End, (SPoint{7, 0}));
}

TEST(FlattenedCircles, OfNoRadiusAreAPoint) {
    EXPECT_EQ(FlattenedAway(DrawnCircle({3, 4}, 0), ESide::LEFT, 0.05).size(), 1U);
}

TEST(FlattenedCircles, KeepTheirMaterial) {
    for (const double radius : {0.01, 1.0, 1000.0}) {
        for (const bool bHole : {false, true}) {
            for (const double sweep : {2 * pi, -2 * pi}) {
                ExpectFlattenedAway(
                    sweep > 0 ? DrawnCircle({5, 5}, radius) : Reversed(DrawnCircle({5, 5}, radius)), bHole,
                    0.05);
            }
        }
    }
}

TEST(FlattenedContours, KeepTheirMaterial) {
    CSeededRandom random(10);
    for (int i = 0; i < RandomCases(60); ++i) {
        const SPath contour = support::RandomContour(random, {random.Between(-50, 50), 7}, 10);
        const double tolerance = random.Pick({0.3, 0.05, 0.01});
        ExpectFlattenedAway(random.Percent(50) ? contour : Reversed(contour), random.Percent(50), tolerance);
    }
}

TEST(FlattenedEllipses, KeepTheirMaterial) {
    CSeededRandom random(11);
    for (int i = 0; i < RandomCases(20); ++i) {
        const double width = random.Between(1, 100);
        const SPoint first{width, random.Between(-5, 5)};
        const SPoint second{random.Between(-5, 5), random.Between(1, 5)};
        const double from = random.Between(-7, 7);
        const SArcTo arc{{3, 3}, first, second, from, random.Percent(50) ? 2 * pi : -2 * pi, {}};
        SPath path{PointAt(arc, from), {arc}, true};
        std::get<SArcTo>(path.m_Stretches[0]).m_End = path.m_Start;
        ExpectFlattenedAway(path, random.Percent(50), 0.05);
    }
}

TEST(FlattenedPieces, DoNotCloseTheirNarrowSlots) {
    // A slot narrower than the tolerance, between two sides that bulge into it.
    const SPath slotted{{0, 0},
                        {SLineTo{{20, 0}}, SLineTo{{20, 20}}, SLineTo{{10.02, 20}},
                         support::QuarterArc({10.02, 20}, {9.99, 12}, {10.02, 4}), SLineTo{{9.98, 4}},
                         support::QuarterArc({9.98, 4}, {10.01, 12}, {9.98, 20}), SLineTo{{0, 20}}},
                        true};
    const SDrawnPiece piece{"", "", 0, slotted, {}, {}, {}};
    const CRing coarse = FlattenedAway(slotted, ESide::LEFT, 0.05);
    EXPECT_FALSE(FindCrossings(SShape{coarse, {}}).empty());
    EXPECT_TRUE(FindCrossings(Flattened(piece, 0.05)).empty());
}

TEST(FlattenedPieces, GrowOutwardAndTheirHolesInward) {
    const SDrawnPiece washer{"", "", 0, DrawnCircle({0, 0}, 10), {Reversed(DrawnCircle({0, 0}, 4))}, {}, {}};
    const SShape shape = Flattened(washer, 0.1);
    for (const SPoint point : shape.m_Outline) {
        EXPECT_GE(Length(point), 10.0);
    }
    for (const SPoint point : shape.m_Holes[0]) {
        EXPECT_LE(Length(point), 4.0 + 1e-12);
    }
}

}  // namespace

}  // namespace nestrix
