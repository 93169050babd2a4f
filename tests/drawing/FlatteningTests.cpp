#include "drawing/Flattening.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "drawing/CCurve.h"
#include "drawing/Crossings.h"
#include "drawing/PathArea.h"
#include "drawing/SDrawnPiece.h"
#include "packing/PointVectors.h"
#include "tests/drawing/DrawnShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using std::numbers::pi;
using support::CSeededRandom;
using support::DrawnCircle;
using support::RandomCases;

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
    const std::vector<SPoint> samples = Samples(path, 500);
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
            EXPECT_LE(DistanceToLine(at, samples, true), tolerance + 2e-5 * size);
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

/// Each point of a curve is on the material's side of an edge that is near it. A curve may come near itself
/// and even cross itself, so that other edges are near, too.
void ExpectOnSide(const SCurveTo& curve, SPoint start, ESide eMaterial, double tolerance) {
    const SPath path{start, {curve}, false};
    const CRing ring = FlattenedAway(path, eMaterial, tolerance);
    for (const SPoint sample : Samples(path, 3000)) {
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
