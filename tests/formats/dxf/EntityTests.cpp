#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>

#include "packing/PointVectors.h"
#include "tests/formats/dxf/DxfTexts.h"

namespace nestrix {

// Each kind of entity by itself, in the fewest groups that describe it.

namespace {

using support::FindingsOf;
using support::PointsOn;
using support::ReadEntities;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr double ROUNDING = 1e-12;

MATCHER_P2(IsAt, x, y, "") {
    return std::abs(arg.m_X - x) <= ROUNDING && std::abs(arg.m_Y - y) <= ROUNDING;
}

/// The only path of a drawing without findings.
SDrawnPath OnlyPath(const std::string& entities) {
    const SDrawing drawing = ReadEntities(entities);
    EXPECT_THAT(FindingsOf(drawing), IsEmpty());
    EXPECT_EQ(drawing.m_Paths.size(), 1U);
    return drawing.m_Paths.empty() ? SDrawnPath() : drawing.m_Paths[0];
}

SPoint Middle(const SPath& path) {
    return PointsOn(path, 2)[1];
}

TEST(Line, IsOneStretchWithItsLayerAndLine) {
    const SDrawnPath drawn = OnlyPath("0 LINE 8 CUT 10 1 20 2 11 30.5 21 -4e1");
    EXPECT_EQ(drawn.m_Path, (SPath{{1, 2}, {SLineTo{{30.5, -40}}}, false}));
    EXPECT_EQ(drawn.m_Layer, "CUT");
    EXPECT_EQ(drawn.m_Name, "");
    EXPECT_EQ(drawn.m_nLine, 18);
}

TEST(Arc, LeadsCounterClockwiseOverZero) {
    const SPath path = OnlyPath("0 ARC 10 5 20 5 40 2 50 270 51 90").m_Path;
    EXPECT_THAT(PointsOn(path, 2), ElementsAre(IsAt(5, 3), IsAt(7, 5), IsAt(5, 7)));
    EXPECT_FALSE(path.m_bClosed);
}

TEST(Arc, OfEqualAnglesIsTheWholeCircle) {
    EXPECT_TRUE(OnlyPath("0 ARC 10 0 20 0 40 2 50 30 51 30").m_Path.m_bClosed);
    EXPECT_TRUE(OnlyPath("0 ARC 10 0 20 0 40 2 50 0 51 360").m_Path.m_bClosed);
}

TEST(Circle, IsOneClosedArc) {
    const SPath path = OnlyPath("0 CIRCLE 10 5 20 6 40 2").m_Path;
    ASSERT_EQ(path.m_Stretches.size(), 1U);
    EXPECT_TRUE(path.m_bClosed);
    EXPECT_EQ(path.m_Start, EndOf(path));
    EXPECT_THAT(PointsOn(path, 4), ElementsAre(IsAt(7, 6), IsAt(5, 8), IsAt(3, 6), IsAt(5, 4), IsAt(7, 6)));
}

TEST(Ellipse, IsOneArcWithItsAxesForRadii) {
    const SPath path = OnlyPath("0 ELLIPSE 10 1 20 2 11 0 21 4 40 0.5 41 0 42 6.283185307179586").m_Path;
    EXPECT_TRUE(path.m_bClosed);
    EXPECT_THAT(PointsOn(path, 4), ElementsAre(IsAt(1, 6), IsAt(-1, 2), IsAt(1, -2), IsAt(3, 2), IsAt(1, 6)));
}

TEST(Ellipse, MayBeAPart) {
    const SPath path =
        OnlyPath("0 ELLIPSE 10 0 20 0 11 4 21 0 40 0.5 41 4.71238898038469 42 1.5707963267948966").m_Path;
    EXPECT_FALSE(path.m_bClosed);
    EXPECT_THAT(PointsOn(path, 2), ElementsAre(IsAt(0, -2), IsAt(4, 0), IsAt(0, 2)));
}

TEST(Bulge, OfOneIsHalfACircleToTheRight) {
    const SPath path = OnlyPath("0 LWPOLYLINE 90 2 70 0 10 0 20 0 42 1 10 10 20 0").m_Path;
    EXPECT_THAT(Middle(path), IsAt(5, -5));
}

TEST(Bulge, OfMinusOneIsHalfACircleToTheLeft) {
    const SPath path = OnlyPath("0 LWPOLYLINE 90 2 70 0 10 0 20 0 42 -1 10 10 20 0").m_Path;
    EXPECT_THAT(Middle(path), IsAt(5, 5));
}

TEST(Bulge, IsTheHeightOfTheArcInHalvesOfItsChord) {
    for (const double bulge : {0.01, 0.3, 0.9, 1.7, 12.0, -0.01, -0.3, -3.0}) {
        const SPath path =
            OnlyPath("0 LWPOLYLINE 90 2 70 0 10 0 20 0 42 " + std::to_string(bulge) + " 10 10 20 0").m_Path;
        EXPECT_NEAR(Middle(path).m_X, 5.0, 1e-11) << bulge;
        EXPECT_NEAR(Middle(path).m_Y, -5.0 * bulge, 1e-11) << bulge;
        EXPECT_EQ(EndOf(path), (SPoint{10, 0}));
    }
}

TEST(Bulge, OfTheLastVertexLeadsBackToTheFirst) {
    const SPath path = OnlyPath("0 LWPOLYLINE 90 2 70 1 10 0 20 0 10 10 20 0 42 1").m_Path;
    EXPECT_TRUE(path.m_bClosed);
    ASSERT_EQ(path.m_Stretches.size(), 2U);
    EXPECT_THAT(PointsOn(path, 2)[3], IsAt(5, 5));
    EXPECT_EQ(EndOf(path), path.m_Start);
}

TEST(Bulge, ThatIsNearlyNothingIsStraight) {
    const SPath path = OnlyPath("0 LWPOLYLINE 90 2 70 0 10 0 20 0 42 1e-12 10 10 20 0").m_Path;
    EXPECT_TRUE(std::holds_alternative<SLineTo>(path.m_Stretches[0]));
}

TEST(LightPolyline, HasAsManyVerticesAsThereAre) {
    for (const char* pCount : {"90 4", "90 1", "90 2147483647", "90 -5", ""}) {
        const SPath path =
            OnlyPath("0 LWPOLYLINE " + std::string(pCount) + " 70 1 10 0 20 0 10 9 20 0 10 9 20 9 10 0 20 9")
                .m_Path;
        EXPECT_THAT(PointsOn(path, 1),
                    ElementsAre(IsAt(0, 0), IsAt(9, 0), IsAt(9, 9), IsAt(0, 9), IsAt(0, 0)))
            << pCount;
    }
}

TEST(HeavyPolyline, IsTheSameAsALightOne) {
    const SPath path = OnlyPath(
                           "0 POLYLINE 8 A 66 1 70 1 0 VERTEX 8 A 10 0 20 0 42 1 0 VERTEX 8 A 10 10 20 0 "
                           "0 VERTEX 8 A 10 10 20 10 0 SEQEND 8 A")
                           .m_Path;
    EXPECT_THAT(PointsOn(path, 1), ElementsAre(IsAt(0, 0), IsAt(10, 0), IsAt(10, 10), IsAt(0, 0)));
    EXPECT_THAT(Middle(path), IsAt(5, -5));
}

TEST(HeavyPolyline, ThatWasFittedToAFrameIsTheCurveAlone) {
    const SPath path = OnlyPath(
                           "0 POLYLINE 66 1 70 4 0 VERTEX 10 0 20 0 70 16 0 VERTEX 10 1 20 1 70 8 "
                           "0 VERTEX 10 5 20 9 70 16 0 VERTEX 10 3 20 1 70 8 0 SEQEND")
                           .m_Path;
    EXPECT_THAT(PointsOn(path, 1), ElementsAre(IsAt(1, 1), IsAt(3, 1)));
}

TEST(HeavyPolyline, ThatIsAMeshIsLeftOut) {
    const SDrawing drawing = ReadEntities(
        "0 POLYLINE 66 1 70 64 0 VERTEX 10 0 20 0 70 192 0 VERTEX 10 1 20 1 "
        "0 SEQEND 0 LINE 10 0 20 0 11 1 21 1");
    EXPECT_EQ(drawing.m_Paths.size(), 1U);
    EXPECT_THAT(FindingsOf(drawing),
                ElementsAre("18: 1 mesh of POLYLINE is left out: this kind is not read"));
}

TEST(Polyline, OfOneVertexIsOdd) {
    const SDrawing drawing = ReadEntities("0 LWPOLYLINE 90 1 10 1 20 2");
    EXPECT_THAT(drawing.m_Paths, IsEmpty());
    ASSERT_THAT(FindingsOf(drawing), ElementsAre("18: a polyline has fewer than two vertices"));
    EXPECT_EQ(drawing.m_Findings[0].m_eSeverity, SFinding::ESeverity::ODD);
}

TEST(WhatLiesUpsideDown, IsSeenFromAbove) {
    const std::string down = " 210 0 220 0 230 -1";
    EXPECT_THAT(PointsOn(OnlyPath("0 ARC 10 5 20 0 40 2 50 0 51 90" + down).m_Path, 1),
                ElementsAre(IsAt(-7, 0), IsAt(-5, 2)));
    EXPECT_THAT(Middle(OnlyPath("0 LWPOLYLINE 90 2 70 0 10 0 20 0 42 1 10 10 20 0" + down).m_Path),
                IsAt(-5, -5));
    // Lines and ellipses have the coordinates of the drawing in any case.
    EXPECT_EQ(OnlyPath("0 LINE 10 1 20 2 11 3 21 4" + down).m_Path.m_Start, (SPoint{1, 2}));
    EXPECT_THAT(
        PointsOn(OnlyPath("0 ELLIPSE 10 0 20 0 11 4 21 0 40 0.5 41 0 42 1.5707963267948966" + down).m_Path,
                 1),
        ElementsAre(IsAt(4, 0), IsAt(0, -2)));
}

TEST(WhatIsTilted, IsLeftOut) {
    EXPECT_THAT(FindingsOf(ReadEntities("0 CIRCLE 10 0 20 0 40 1 210 0 220 1 230 1")),
                ElementsAre("18: 1 tilted CIRCLE is left out: this kind is not read"));
}

TEST(OtherKinds, AreNamedOnceEach) {
    const SDrawing drawing = ReadEntities("0 HATCH 8 0 0 RAY 8 0 0 HATCH 8 0 0 CIRCLE 10 0 20 0 40 1");
    EXPECT_EQ(drawing.m_Paths.size(), 1U);
    ASSERT_THAT(FindingsOf(drawing), ElementsAre("18: 2 \"HATCH\" are left out: this kind is not read",
                                                 "22: 1 \"RAY\" is left out: this kind is not read"));
    EXPECT_EQ(drawing.m_Findings[0].m_eSeverity, SFinding::ESeverity::ODD);
    EXPECT_EQ(drawing.m_Findings[0].m_File, "test.dxf");
}

TEST(PaperSpaceAndInvisibleEntities, AreLeftOut) {
    const SDrawing drawing =
        ReadEntities("0 CIRCLE 67 1 10 0 20 0 40 1 0 VIEWPORT 67 1 0 CIRCLE 60 1 10 0 20 0 40 2");
    EXPECT_THAT(drawing.m_Paths, IsEmpty());
    ASSERT_THAT(FindingsOf(drawing), ElementsAre("32: what is invisible is left out"));
    EXPECT_EQ(drawing.m_Findings[0].m_eSeverity, SFinding::ESeverity::NOTE);
}

struct SUnitCase {
    int m_nCode;
    std::optional<EUnit> m_Unit;
    double m_OneBecomes;
};

TEST(Unit, IsThatOfTheHeader) {
    for (const auto& [nCode, unit, one] :
         {SUnitCase{0, std::nullopt, 1.0}, SUnitCase{1, EUnit::INCH, 1.0}, SUnitCase{2, EUnit::FOOT, 1.0},
          SUnitCase{4, EUnit::MILLIMETRE, 1.0}, SUnitCase{5, EUnit::CENTIMETRE, 1.0},
          SUnitCase{6, EUnit::METRE, 1.0}, SUnitCase{14, EUnit::CENTIMETRE, 10.0},
          SUnitCase{9, EUnit::INCH, 0.001}, SUnitCase{77, std::nullopt, 1.0}}) {
        const SDrawing drawing =
            ReadEntities("0 LINE 10 0 20 0 11 1 21 0", "", "9 $INSUNITS 70 " + std::to_string(nCode));
        EXPECT_EQ(drawing.m_Unit, unit) << nCode;
        EXPECT_EQ(EndOf(drawing.m_Paths.at(0).m_Path).m_X, one) << nCode;
    }
}

TEST(Unit, IsAbsentWhereTheFileNamesNone) {
    EXPECT_EQ(ReadEntities("0 LINE 10 0 20 0 11 1 21 0").m_Unit, std::nullopt);
    EXPECT_EQ(ReadEntities("", "", "9 $LUNITS 70 4").m_Unit, std::nullopt);
}

TEST(Unit, ThatIsNotCommonIsNamed) {
    EXPECT_THAT(FindingsOf(ReadEntities("", "", "9 $INSUNITS 70 14")),
                ElementsAre("0: it is drawn in decimetres"));
    EXPECT_THAT(FindingsOf(ReadEntities("", "", "9 $INSUNITS 70 77")),
                ElementsAre("0: its unit, $INSUNITS 77, is not known"));
}

}  // namespace

}  // namespace nestrix
