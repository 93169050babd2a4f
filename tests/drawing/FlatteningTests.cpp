#include "drawing/Flattening.h"

#include <gtest/gtest.h>

#include <cmath>
#include <functional>
#include <numbers>

#include "drawing/CCurve.h"
#include "drawing/PathArea.h"
#include "drawing/SDrawnPiece.h"
#include "drawing/SMap.h"
#include "packing/PointVectors.h"
#include "tests/support/CSeededRandom.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using std::numbers::pi;
using support::CSeededRandom;
using support::RandomCases;

SPath Circle(SPoint centre, double radius, double sweep = 2 * pi) {
    const SPoint start = centre + SPoint{radius, 0};
    return {start, {SArcTo{centre, {radius, 0}, {0, radius}, 0, sweep, start}}, true};
}

double DistanceOf(SPoint point, SPoint from, SPoint to) {
    const SPoint along = to - from;
    const double square = Dot(along, along);
    const double share = square > 0.0 ? std::clamp(Dot(point - from, along) / square, 0.0, 1.0) : 0.0;
    return Length(point - from - along * share);
}

/// Points of a path, so dense that between two of them it is hardly bent.
std::vector<SPoint> Samples(const SPath& path, int nPerStretch) {
    std::vector<SPoint> samples{path.m_Start};
    SPoint from = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        for (int i = 1; i <= nPerStretch; ++i) {
            const double share = static_cast<double>(i) / nPerStretch;
            if (const auto* pCurve = std::get_if<SCurveTo>(&stretch)) {
                samples.push_back(CCurve(from, *pCurve).At(share));
            } else if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
                samples.push_back(PointAt(*pArc, pArc->m_From + pArc->m_Sweep * share));
            } else {
                samples.push_back(from + (EndOf(stretch) - from) * share);
            }
        }
        from = EndOf(stretch);
    }
    return samples;
}

double DistanceToLine(SPoint point, const std::vector<SPoint>& line, bool bClosed) {
    double least = HUGE_VAL;
    for (size_t i = 0; i + (bClosed ? 0 : 1) < line.size(); ++i) {
        least = std::min(least, DistanceOf(point, line[i], line[(i + 1) % line.size()]));
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
    const std::vector<SPoint> samples = Samples(path, 2000);
    double size = 0.0;
    for (const SPoint sample : samples) {
        size = std::max(size, Length(sample - path.m_Start));
    }
    const double rounding = 1e-9 * size;
    for (const SPoint sample : samples) {
        const double distance = DistanceToLine(sample, ring, true);
        EXPECT_LE(distance, tolerance + rounding);
        EXPECT_TRUE(distance <= rounding || IsInside(sample, ring) != bHole) << distance;
    }
    const double step = size / 100.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SPoint along = ring[(i + 1) % ring.size()] - ring[i];
        const int nSteps = 1 + static_cast<int>(Length(along) / step);
        for (int k = 0; k < nSteps; ++k) {
            const SPoint at = ring[i] + along * (static_cast<double>(k) / nSteps);
            EXPECT_LE(DistanceToLine(at, samples, true), tolerance + 2e-6 * size);
        }
    }
}

TEST(FlattenedCircles, AreRegularPolygonsAround) {
    const CRing ring = FlattenedAway(Circle({3, 4}, 10), ESide::LEFT, 0.05);
    const double angle = 2 * pi / static_cast<double>(ring.size());
    for (const SPoint point : ring) {
        EXPECT_NEAR(Length(point - SPoint{3, 4}), 10 / std::cos(angle / 2), 1e-9);
        EXPECT_LE(Length(point - SPoint{3, 4}), 10.05);
    }
    EXPECT_EQ(ring.size(), static_cast<size_t>(std::ceil(pi / std::acos(10 / 10.05))));
}

TEST(FlattenedCircles, AreTheSameFromTwoHalves) {
    SPath halves = Circle({0, 0}, 7);
    const SArcTo whole = std::get<SArcTo>(halves.m_Stretches[0]);
    halves.m_Stretches = {SArcTo{{0, 0}, {7, 0}, {0, 7}, 0, pi, {-7, 0}},
                          SArcTo{{0, 0}, {7, 0}, {0, 7}, pi, pi, {7, 0}}};
    const CRing ring = FlattenedAway(halves, ESide::LEFT, 0.05);
    const CRing once = FlattenedAway(Circle({0, 0}, 7), ESide::LEFT, 0.05);
    EXPECT_EQ(ring.size(), once.size() + once.size() % 2);
    for (const SPoint point : ring) {
        EXPECT_GE(Length(point), 7.0);
    }
    EXPECT_EQ(whole.m_End, (SPoint{7, 0}));
}

TEST(FlattenedCircles, OfNoRadiusAreAPoint) {
    EXPECT_EQ(FlattenedAway(Circle({3, 4}, 0), ESide::LEFT, 0.05).size(), 1U);
}

TEST(FlattenedCircles, KeepTheirMaterial) {
    for (const double radius : {0.01, 1.0, 1000.0}) {
        for (const bool bHole : {false, true}) {
            for (const double sweep : {2 * pi, -2 * pi}) {
                ExpectFlattenedAway(Circle({5, 5}, radius, sweep), bHole, 0.05);
            }
        }
    }
}

}  // namespace

}  // namespace nestrix
