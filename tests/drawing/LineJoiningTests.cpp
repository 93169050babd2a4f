#include "drawing/LineJoining.h"

#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <numbers>

#include "drawing/PathArea.h"
#include "packing/PointVectors.h"
#include "tests/drawing/DrawnShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::Chopped;
using support::CSeededRandom;
using support::DrawnLine;
using support::DrawnRectangle;
using support::RandomCases;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::UnorderedElementsAre;

constexpr double TOLERANCE = 0.1;

std::vector<double> AreasOf(const std::vector<SJoinedLine>& lines) {
    std::vector<double> areas;
    for (const SJoinedLine& line : lines) {
        areas.push_back(std::abs(SignedArea(line.m_Path)));
    }
    std::sort(areas.begin(), areas.end());
    return areas;
}

std::vector<SPath> PathsOf(const std::vector<SJoinedLine>& lines) {
    std::vector<SPath> paths;
    for (const SJoinedLine& line : lines) {
        paths.push_back(line.m_Path);
    }
    return paths;
}

std::vector<SPath> Polyline(const std::vector<SPoint>& points) {
    std::vector<SPath> lines;
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        lines.push_back(DrawnLine(points[i], points[i + 1]));
    }
    return lines;
}

std::vector<SPath> operator+(std::vector<SPath> a, const std::vector<SPath>& b) {
    a.insert(a.end(), b.begin(), b.end());
    return a;
}

/// The rectangle's four sides.
std::vector<SPath> Sides(double left, double bottom, double width, double height) {
    return Polyline({{left, bottom},
                     {left + width, bottom},
                     {left + width, bottom + height},
                     {left, bottom + height},
                     {left, bottom}});
}

TEST(JoinedLines, AreNoneOfNone) {
    const SJoinedLines joined = JoinLines({}, TOLERANCE);
    EXPECT_THAT(joined.m_Closed, IsEmpty());
    EXPECT_THAT(joined.m_Open, IsEmpty());
}

TEST(JoinedLines, CloseToAContourWhichTurnsCounterClockwise) {
    const std::vector<SPath> lines{DrawnLine({9, 0}, {0, 0}), DrawnLine({9, 0}, {9, 9}),
                                   DrawnLine({0, 0}, {9, 9})};
    const SJoinedLines joined = JoinLines(lines, TOLERANCE);
    EXPECT_THAT(PathsOf(joined.m_Closed),
                ElementsAre(SPath{{0, 0}, {SLineTo{{9, 0}}, SLineTo{{9, 9}}, SLineTo{{0, 0}}}, true}));
    EXPECT_THAT(joined.m_Closed[0].m_Sources, ElementsAre(0, 1, 2));
    EXPECT_THAT(joined.m_Open, IsEmpty());
}

TEST(JoinedLines, StayOpenWhereTheGapIsWide) {
    const SJoinedLines joined = JoinLines(Polyline({{0, 0}, {9, 0}, {9, 9}, {0, 0.3}}), TOLERANCE);
    EXPECT_THAT(joined.m_Closed, IsEmpty());
    EXPECT_THAT(PathsOf(joined.m_Open),
                ElementsAre(SPath{{0, 0}, {SLineTo{{9, 0}}, SLineTo{{9, 9}}, SLineTo{{0, 0.3}}}, false}));
}

TEST(JoinedLines, CloseTheirOwnGap) {
    const SJoinedLines joined = JoinLines(Polyline({{0, 0}, {9, 0}, {9, 9}, {0, 0.05}}), TOLERANCE);
    ASSERT_THAT(joined.m_Closed, SizeIs(1));
    EXPECT_EQ(EndOf(joined.m_Closed[0].m_Path), joined.m_Closed[0].m_Path.m_Start);
    const std::vector<SPath> oneLine{{{0, 0}, {SLineTo{{9, 0}}, SLineTo{{9, 9}}, SLineTo{{0, 0.05}}}, false}};
    EXPECT_THAT(JoinLines(oneLine, TOLERANCE).m_Closed, SizeIs(1));
}

TEST(JoinedLines, BelongToTheNearestEnd) {
    // The third line's end is within the tolerance of both others'.
    const std::vector<SPath> lines{DrawnLine({0, 0}, {5, 0}), DrawnLine({5, 0.09}, {0, 9}),
                                   DrawnLine({5, 0.03}, {9, 9})};
    const SJoinedLines joined = JoinLines(lines, TOLERANCE);
    ASSERT_THAT(joined.m_Open, SizeIs(2));
    EXPECT_THAT(joined.m_Open[0].m_Sources, ElementsAre(0, 2));
    EXPECT_THAT(joined.m_Open[1].m_Sources, ElementsAre(1));
}

TEST(JoinedLines, MayBeShorterThanTheTolerance) {
    std::vector<SPoint> circle;
    for (int i = 0; i <= 1000; ++i) {
        const double angle = 2 * std::numbers::pi * (i % 1000) / 1000;
        circle.push_back({10 * std::cos(angle), 10 * std::sin(angle)});
    }
    CSeededRandom random(5);
    for (const double tolerance : {0.1, 1.0, 5.0}) {
        const SJoinedLines joined = JoinLines(Polyline(circle), tolerance);
        ASSERT_THAT(joined.m_Closed, SizeIs(1)) << tolerance;
        EXPECT_THAT(joined.m_Closed[0].m_Path.m_Stretches, SizeIs(1000));
    }
}

TEST(JoinedLines, AloneAndShortAreNoContour) {
    EXPECT_THAT(JoinLines(std::vector{DrawnLine({0, 0}, {0.05, 0})}, TOLERANCE).m_Closed, IsEmpty());
}

TEST(JoinedLines, BetweenTwoArcsGetALineOfTheirOwn) {
    const SArcTo lower{{0, 0}, {5, 0}, {0, 5}, -std::numbers::pi, std::numbers::pi, {5, 0}};
    const SArcTo upper{{0, 0.05}, {5, 0}, {0, 5}, 0, std::numbers::pi, {-5, 0.05}};
    const std::vector<SPath> lines{{{-5, 0}, {lower}, false}, {{5, 0.05}, {upper}, false}};
    const SJoinedLines joined = JoinLines(lines, TOLERANCE);
    ASSERT_THAT(joined.m_Closed, SizeIs(1));
    EXPECT_THAT(joined.m_Closed[0].m_Path.m_Stretches,
                ElementsAre(CStretch(lower), CStretch(SLineTo{{5, 0.05}}), CStretch(upper),
                            CStretch(SLineTo{{-5, 0}})));
}

TEST(JoinedLines, ThatTouchAtACornerAreTwoContours) {
    EXPECT_THAT(AreasOf(JoinLines(Sides(0, 0, 5, 5) + Sides(5, 5, 4, 4), TOLERANCE).m_Closed),
                ElementsAre(16, 25));
    EXPECT_THAT(
        AreasOf(JoinLines(Sides(0, 0, 5, 5) + Polyline({{0, 0}, {2, 1}, {3, 3}, {1, 2}, {0, 0}}), TOLERANCE)
                    .m_Closed),
        ElementsAre(3, 25))
        << "one within the other";
}

TEST(JoinedLines, LeaveLinesAcrossOpen) {
    const SJoinedLines joined =
        JoinLines(Sides(0, 0, 5, 5) + std::vector{DrawnLine({0, 0}, {5, 5})}, TOLERANCE);
    EXPECT_THAT(AreasOf(joined.m_Closed), ElementsAre(25));
    EXPECT_THAT(PathsOf(joined.m_Open), ElementsAre(DrawnLine({0, 0}, {5, 5})));
}

TEST(JoinedLines, LeaveLinesThatLeadNowhereOpen) {
    const SJoinedLines joined = JoinLines(Sides(0, 0, 5, 5) + Polyline({{5, 5}, {4, 4}, {2, 3}}), TOLERANCE);
    EXPECT_THAT(AreasOf(joined.m_Closed), ElementsAre(25));
    EXPECT_THAT(PathsOf(joined.m_Open),
                ElementsAre(SPath{{2, 3}, {SLineTo{{4, 4}}, SLineTo{{5, 5}}}, false}));
}

TEST(JoinedLines, LeaveLinesBetweenContoursOpen) {
    const SJoinedLines joined =
        JoinLines(Sides(0, 0, 5, 5) + Polyline({{5, 5}, {7, 7}, {8, 8}}) + Sides(8, 8, 2, 2), TOLERANCE);
    EXPECT_THAT(AreasOf(joined.m_Closed), ElementsAre(4, 25));
    EXPECT_THAT(joined.m_Open, SizeIs(1));
    EXPECT_THAT(
        JoinLines(Sides(0, 0, 9, 9) + Polyline({{0, 0}, {2, 2}}) + Sides(2, 2, 2, 2), TOLERANCE).m_Closed,
        SizeIs(2))
        << "one within the other";
}

TEST(JoinedLines, ThatShareASideAreOneContour) {
    // A side that two rectangles have in common is drawn once.
    const SJoinedLines joined =
        JoinLines(Sides(0, 0, 5, 5) + Polyline({{5, 0}, {9, 0}, {9, 5}, {5, 5}}), TOLERANCE);
    EXPECT_THAT(AreasOf(joined.m_Closed), ElementsAre(45));
    EXPECT_THAT(joined.m_Open, SizeIs(1));
}

TEST(JoinedLines, AreToldApartWhereTheyLeaveOnACommonTangent) {
    // A lens whose lower arc and a chord of the upper one leave in the same direction.
    const SPath lower{{0, 0}, {support::QuarterArc({0, 0}, {5, 0}, {10, 4})}, false};
    const SPath upper{{0, 0}, {support::QuarterArc({0, 0}, {2, 0}, {10, 4})}, false};
    const SPath straight = DrawnLine({0, 0}, {10, 0});
    const std::vector<SPath> lines{upper, straight, lower, DrawnLine({10, 0}, {10, 4})};
    const SJoinedLines joined = JoinLines(lines, TOLERANCE);
    ASSERT_THAT(joined.m_Closed, SizeIs(1));
    EXPECT_THAT(joined.m_Closed[0].m_Sources, ElementsAre(0, 1, 3));
}

TEST(RandomContours, AreFoundAgainFromTheirParts) {
    CSeededRandom random(6);
    for (int i = 0; i < RandomCases(300); ++i) {
        std::vector<SPath> lines;
        std::vector<double> areas;
        const int nContours = random.Range(1, 4);
        for (int k = 0; k < nContours; ++k) {
            const SPath contour = support::RandomContour(random, {30.0 * k, 0}, 10);
            areas.push_back(std::abs(SignedArea(contour)));
            lines = lines + Chopped(random, contour);
        }
        const SJoinedLines joined = JoinLines(lines, TOLERANCE);
        EXPECT_THAT(joined.m_Open, IsEmpty());
        std::sort(areas.begin(), areas.end());
        EXPECT_THAT(AreasOf(joined.m_Closed), testing::Pointwise(testing::DoubleNear(1e-9), areas));
    }
}

TEST(RandomContours, AreFoundAgainFromPartsWithGaps) {
    CSeededRandom random(7);
    for (int i = 0; i < RandomCases(300); ++i) {
        const SPath contour = support::RandomContour(random, {0, 0}, 10);
        std::vector<SPath> lines = Chopped(random, contour);
        for (SPath& line : lines) {
            const SPoint by{random.Between(-0.03F, 0.03F), random.Between(-0.03F, 0.03F)};
            line = SMap{1, 0, 0, 1, by.m_X, by.m_Y}(line);
        }
        const SJoinedLines joined = JoinLines(lines, TOLERANCE);
        EXPECT_THAT(joined.m_Open, IsEmpty());
        ASSERT_THAT(joined.m_Closed, SizeIs(1));
        EXPECT_NEAR(SignedArea(joined.m_Closed[0].m_Path), std::abs(SignedArea(contour)), 5.0);
        SPoint from = joined.m_Closed[0].m_Path.m_Start;
        for (const CStretch& stretch : joined.m_Closed[0].m_Path.m_Stretches) {
            if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
                EXPECT_LE(Length(PointAt(*pArc, pArc->m_From) - from), 1e-3) << "arcs stay where they are";
            }
            from = EndOf(stretch);
        }
        EXPECT_EQ(from, joined.m_Closed[0].m_Path.m_Start);
    }
}

TEST(RandomContours, DoNotDependOnTheOrderOfTheirParts) {
    CSeededRandom random(8);
    for (int i = 0; i < RandomCases(200); ++i) {
        // On a small grid, many lines meet at one point, and many cross.
        std::vector<SPath> lines;
        for (int k = random.Range(3, 30); k > 0; --k) {
            const auto draw = [&random] {
                return SPoint{static_cast<double>(random.Range(0, 4)),
                              static_cast<double>(random.Range(0, 4))};
            };
            const SPath line = DrawnLine(draw(), draw());
            const bool bNew = std::none_of(lines.begin(), lines.end(), [&line](const SPath& other) {
                return other == line || other == Reversed(line);
            });
            if (bNew && !(line.m_Start == EndOf(line))) {
                lines.push_back(line);
            }
        }
        const SJoinedLines joined = JoinLines(lines, TOLERANCE);
        size_t nLines = 0;
        for (const auto* pLines : {&joined.m_Closed, &joined.m_Open}) {
            for (const SJoinedLine& line : *pLines) {
                nLines += line.m_Sources.size();
            }
        }
        EXPECT_EQ(nLines, lines.size()) << "each is used once";
        for (SPath& line : lines) {
            line = random.Percent(50) ? Reversed(line) : line;
        }
        for (size_t k = lines.size(); k > 1; --k) {
            std::swap(lines[k - 1], lines[random.Index(k)]);
        }
        const SJoinedLines shuffled = JoinLines(lines, TOLERANCE);
        EXPECT_THAT(PathsOf(shuffled.m_Closed), testing::UnorderedElementsAreArray(PathsOf(joined.m_Closed)));
        EXPECT_THAT(PathsOf(shuffled.m_Open), testing::UnorderedElementsAreArray(PathsOf(joined.m_Open)));
    }
}

}  // namespace

}  // namespace nestrix
