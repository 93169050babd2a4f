#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>

#include "formats/dxf/DxfSplines.h"
#include "formats/dxf/FitPointCurve.h"
#include "packing/PointVectors.h"
#include "tests/formats/dxf/DxfTexts.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix {

namespace {

using support::FindingsOf;
using support::PointsOn;
using testing::ElementsAre;
using testing::IsEmpty;

/// A basis function by its definition (Cox and de Boor): slow and obvious.
double Basis(const std::vector<double>& knots, size_t i, size_t nDegree, double at) {
    if (nDegree == 0) {
        return knots[i] <= at && at < knots[i + 1] ? 1.0 : 0.0;
    }
    double value = 0.0;
    if (knots[i + nDegree] > knots[i]) {
        value += (at - knots[i]) / (knots[i + nDegree] - knots[i]) * Basis(knots, i, nDegree - 1, at);
    }
    if (knots[i + nDegree + 1] > knots[i + 1]) {
        value += (knots[i + nDegree + 1] - at) / (knots[i + nDegree + 1] - knots[i + 1]) *
                 Basis(knots, i + 1, nDegree - 1, at);
    }
    return value;
}

SPoint PlainPoint(const SSpline& spline, double at) {
    SPoint sum;
    double weights = 0.0;
    for (size_t i = 0; i < spline.m_Controls.size(); ++i) {
        const double weight = (spline.m_Weights.empty() ? 1.0 : spline.m_Weights[i]) *
                              Basis(spline.m_Knots, i, static_cast<size_t>(spline.m_nDegree), at);
        sum = sum + spline.m_Controls[i] * weight;
        weights += weight;
    }
    return sum * (1.0 / weights);
}

SSpline RandomSpline(support::CSeededRandom& random, int nDegree, bool bClamped) {
    SSpline spline;
    spline.m_nDegree = nDegree;
    const int nControls = nDegree + 1 + random.Range(0, 6);
    double knot = 0.0;
    for (int i = 0; i < nControls; ++i) {
        spline.m_Controls.push_back({random.Between(-50, 50), random.Between(-50, 50)});
    }
    for (int i = 0; i < nControls + nDegree + 1; ++i) {
        const bool bRepeat = bClamped && (i <= nDegree || i > nControls);
        knot += bRepeat ? 0.0 : random.Between(0.1F, 2.0F);
        spline.m_Knots.push_back(knot);
    }
    return spline;
}

/// The largest distance of the path from the curve, at the same parameters.
double ErrorOf(const SSpline& spline) {
    EXPECT_EQ(FaultOf(spline), "");
    const std::vector<SPoint> points = PointsOn(PathOf(spline), 4);
    const auto nDegree = static_cast<size_t>(spline.m_nDegree);
    double error = 0.0;
    size_t nNext = 0;
    for (size_t i = nDegree; i < spline.m_Controls.size(); ++i) {
        const double first = spline.m_Knots[i];
        const double span = spline.m_Knots[i + 1] - first;
        for (int nStep = 0; nStep < 4 && span > 0.0; ++nStep) {
            error =
                std::max(error, Length(points.at(nNext++) - PlainPoint(spline, first + span * nStep / 4)));
        }
    }
    return error;
}

TEST(SplineWithoutWeights, IsExactUpToTheThirdDegree) {
    support::CSeededRandom random(5);
    for (int nCase = 0; nCase < 200; ++nCase) {
        for (const int nDegree : {1, 2, 3}) {
            EXPECT_LE(ErrorOf(RandomSpline(random, nDegree, nCase % 2 == 0)), 1e-11);
        }
    }
}

/// How far the curve is from the path, which follows it in steps of its own.
double DistanceFrom(const SPath& path, const SSpline& spline) {
    const std::vector<SPoint> points = PointsOn(path, 400);
    const double first = spline.m_Knots[static_cast<size_t>(spline.m_nDegree)];
    const double last = spline.m_Knots[spline.m_Controls.size()];
    double farthest = 0.0;
    for (int nStep = 0; nStep < 50; ++nStep) {
        const SPoint point = PlainPoint(spline, first + (last - first) * nStep / 50);
        double nearest = HUGE_VAL;
        for (size_t i = 0; i + 1 < points.size(); ++i) {
            nearest = std::min(nearest, DistanceOf(point, points[i], points[i + 1]));
        }
        farthest = std::max(farthest, nearest);
    }
    return farthest;
}

TEST(SplineOfAHigherDegreeOrWithWeights, IsFollowedToAMillionthOfItsExtent) {
    support::CSeededRandom random(6);
    for (int nCase = 0; nCase < 20; ++nCase) {
        SSpline spline = RandomSpline(random, 2 + nCase % 5, nCase % 3 == 0);
        for (size_t i = 0; i < spline.m_Controls.size(); ++i) {
            spline.m_Weights.push_back(spline.m_nDegree < 4 ? random.Between(0.3F, 3.0F) : 1.0);
        }
        EXPECT_LE(DistanceFrom(PathOf(spline), spline), 2.0 * SPLINE_TOLERANCE * 141.0) << nCase;
    }
}

TEST(SplineWithWeights, IsACircleExactlyWhereItIsOne) {
    const double half = std::sqrt(0.5);
    const SSpline spline{2,
                         {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4},
                         {{5, 0}, {5, 5}, {0, 5}, {-5, 5}, {-5, 0}, {-5, -5}, {0, -5}, {5, -5}, {5, 0}},
                         {1, half, 1, half, 1, half, 1, half, 1}};
    const SPath path = PathOf(spline);
    EXPECT_TRUE(path.m_bClosed);
    ASSERT_EQ(path.m_Stretches.size(), 4U);
    for (const SPoint& point : PointsOn(path, 16)) {
        EXPECT_NEAR(Length(point), 5.0, 1e-14);
    }
}

TEST(SplineWithWeights, IsAnArcOfAnEllipseExactlyWhereItIsOne) {
    const SSpline spline{2, {0, 0, 0, 1, 1, 1}, {{10, 0}, {10, 3}, {0, 3}}, {1, std::sqrt(0.5), 1}};
    const SPath path = PathOf(spline);
    ASSERT_EQ(path.m_Stretches.size(), 1U);
    for (const SPoint& point : PointsOn(path, 16)) {
        EXPECT_NEAR(std::hypot(point.m_X / 10, point.m_Y / 3), 1.0, 1e-14);
    }
}

TEST(SplineWithEqualWeights, IsOneWithoutWeights) {
    SSpline spline{3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0}, {1, 2}, {3, 2}, {4, 0}}, {}};
    const SPath path = PathOf(spline);
    EXPECT_EQ(path, (SPath{{0, 0}, {SCurveTo{{1, 2}, {3, 2}, {4, 0}}}, false}));
    spline.m_Weights = {2, 2, 2, 2};
    EXPECT_EQ(PathOf(spline), path);
}

TEST(SplineWithAKnotThatLetsItJump, GoesStraightOverTheGap) {
    const SSpline spline{1, {0, 0, 1, 1, 2, 2}, {{0, 0}, {1, 0}, {1, 5}, {2, 5}}, {}};
    EXPECT_THAT(PointsOn(PathOf(spline), 1),
                ElementsAre(SPoint{0, 0}, SPoint{1, 0}, SPoint{1, 5}, SPoint{2, 5}));
}

TEST(UnsoundSpline, IsRefusedWithTheReason) {
    const std::vector<SPoint> four(4);
    const std::vector<double> eight{0, 0, 0, 0, 1, 1, 1, 1};
    EXPECT_EQ(FaultOf(SSpline{0, {}, four, {}}), "the degree of a spline is 0, not from 1 to 15");
    EXPECT_EQ(FaultOf(SSpline{16, {}, four, {}}), "the degree of a spline is 16, not from 1 to 15");
    EXPECT_EQ(FaultOf(SSpline{4, eight, four, {}}), "a spline of degree 4 has 4 control points only");
    EXPECT_EQ(FaultOf(SSpline{2, eight, four, {}}),
              "a spline of degree 2 with 4 control points has 8 knots instead of 7");
    EXPECT_EQ(FaultOf(SSpline{3, {0, 0, 0, 0, 1, 1, 0, 1}, four, {}}), "the knots of a spline do not ascend");
    EXPECT_EQ(FaultOf(SSpline{3, {0, 0, 0, 1, 1, 1, 1, 1}, four, {}}), "all knots of a spline are the same");
    EXPECT_EQ(FaultOf(SSpline{3, eight, four, {1, 1, 0, 1}}), "a spline has a weight that is not positive");
}

TEST(SplineOfAFile, HasItsControlPointsKnotsAndWeights) {
    const SDrawing drawing = support::ReadEntities(
        "0 SPLINE 8 A 70 8 71 3 72 8 73 4 74 0 40 0 40 0 40 0 40 0 40 1 40 1 40 1 40 1 "
        "10 0 20 0 10 1 20 2 10 3 20 2 10 4 20 0");
    EXPECT_THAT(FindingsOf(drawing), IsEmpty());
    ASSERT_EQ(drawing.m_Paths.size(), 1U);
    EXPECT_EQ(drawing.m_Paths[0].m_Path, (SPath{{0, 0}, {SCurveTo{{1, 2}, {3, 2}, {4, 0}}}, false}));
    EXPECT_EQ(drawing.m_Paths[0].m_Layer, "A");
    const SDrawing weighted = support::ReadEntities(
        "0 SPLINE 70 4 71 2 40 0 40 0 40 0 40 1 40 1 40 1 41 1 41 0.5 41 1 10 0 20 0 10 1 20 2 10 3 20 0");
    EXPECT_THAT(FindingsOf(weighted), IsEmpty());
    ASSERT_EQ(weighted.m_Paths.size(), 1U);
    EXPECT_TRUE(std::holds_alternative<SArcTo>(weighted.m_Paths[0].m_Path.m_Stretches[0]));
}

TEST(SplineOfAFile, ThatIsUnsoundIsAFaultInItsLine) {
    EXPECT_THAT(FindingsOf(support::ReadEntities("0 SPLINE 71 3 40 0 10 1 20 2 10 3 20 4")),
                ElementsAre("18: a spline of degree 3 has 2 control points only"));
    EXPECT_THAT(FindingsOf(support::ReadEntities("0 SPLINE 71 3 11 1 21 1")),
                ElementsAre("18: a spline has fewer than two different points"));
}

TEST(SplineThroughFitPoints, IsTheOneCubicThatTheyLieOn) {
    // Of a parabola with the parameter along the chords, only a straight line is left: three points on one.
    const auto straight = FitPointPath({{{0, 0}, {1, 1}, {4, 4}}, {}, {}, false});
    ASSERT_TRUE(straight);
    for (const SPoint& point : PointsOn(*straight, 8)) {
        EXPECT_NEAR(point.m_X, point.m_Y, 1e-14);
    }
}

TEST(SplineThroughFitPoints, RunsThroughThemWithoutAKink) {
    const std::vector<SPoint> points{{0, 0}, {10, 20}, {30, 15}, {35, -10}, {60, 0}};
    for (const bool bClosed : {false, true}) {
        const auto path = FitPointPath({points, {}, {}, bClosed});
        ASSERT_TRUE(path);
        EXPECT_EQ(path->m_bClosed, bClosed);
        ASSERT_EQ(path->m_Stretches.size(), bClosed ? 5U : 4U);
        SPoint start = points[0];
        for (size_t i = 0; i + 1 < path->m_Stretches.size() + (bClosed ? 1 : 0); ++i) {
            const auto& curve = std::get<SCurveTo>(path->m_Stretches[i]);
            const auto& next = std::get<SCurveTo>(path->m_Stretches[(i + 1) % path->m_Stretches.size()]);
            EXPECT_EQ(curve.m_End, points[(i + 1) % points.size()]);
            const SPoint chordEnd = points[(i + 2) % points.size()];
            const double before = Length(curve.m_End - start);
            const double after = Length(chordEnd - curve.m_End);
            const SPoint arriving = (curve.m_End - curve.m_SecondControl) * (3.0 / before);
            const SPoint leaving = (next.m_FirstControl - curve.m_End) * (3.0 / after);
            EXPECT_NEAR(Length(arriving - leaving), 0.0, 1e-12);
            const SPoint bendBefore =
                (curve.m_End - curve.m_SecondControl * 2.0 + curve.m_FirstControl) * (6.0 / before / before);
            const SPoint bendAfter =
                (next.m_SecondControl - next.m_FirstControl * 2.0 + curve.m_End) * (6.0 / after / after);
            EXPECT_NEAR(Length(bendBefore - bendAfter), 0.0, 1e-12);
            start = curve.m_End;
        }
    }
}

TEST(SplineThroughFitPoints, LeavesAndArrivesAlongItsTangents) {
    const auto path = FitPointPath({{{0, 0}, {10, 0}}, SPoint{0, 5}, SPoint{0, -2}, false});
    ASSERT_TRUE(path);
    EXPECT_THAT(path->m_Stretches,
                ElementsAre(CStretch(SCurveTo{{0, 10.0 / 3.0}, {10, 10.0 / 3.0}, {10, 0}})));
}

TEST(SplineThroughFitPoints, NeedsTwoThatDiffer) {
    EXPECT_FALSE(FitPointPath({{}, {}, {}, false}));
    EXPECT_FALSE(FitPointPath({{{1, 1}, {1, 1}}, {}, {}, true}));
}

}  // namespace

}  // namespace nestrix
