#include <gtest/gtest.h>

#include "tests/formats/svg/InShort.h"

// The basic shapes. They stand below the x axis: y is turned up.

namespace nestrix {

namespace {

std::string Shape(const std::string& element) {
    const SDrawing drawing = ReadSvgContent(element);
    const std::string findings = InShort(drawing.m_Findings);
    return InShort(drawing) + (findings.empty() ? "" : " | " + findings);
}

TEST(SvgShapes, RectanglesAreClosed) {
    EXPECT_EQ(Shape("<rect x='1' y='2' width='10' height='5'/>"), "M1,-2 L11,-2 L11,-7 L1,-7 Z");
}

TEST(SvgShapes, RoundRectanglesHaveArcsAtTheirCorners) {
    EXPECT_EQ(Shape("<rect width='10' height='6' rx='2' ry='1'/>"),
              "M2,0 L8,0 A(8,-1; 2,0; 0,-1; -90, 90) 10,-1 L10,-5 A(8,-5; 2,0; 0,-1; 0, 90) 8,-6 "
              "L2,-6 A(2,-5; 2,0; 0,-1; 90, 90) 0,-5 L0,-1 A(2,-1; 2,0; 0,-1; 180, 90) 2,0 Z");
}

TEST(SvgShapes, OneRadiusOfARectangleStandsForBoth) {
    EXPECT_EQ(Shape("<rect width='10' height='6' ry='2'/>"),
              Shape("<rect width='10' height='6' rx='2' ry='2'/>"));
    EXPECT_EQ(Shape("<rect width='10' height='6' rx='2' ry='auto'/>"),
              Shape("<rect width='10' height='6' rx='2' ry='2'/>"));
}

TEST(SvgShapes, RadiiReachNoFartherThanHalfOfARectangle) {
    EXPECT_EQ(Shape("<rect width='4' height='4' rx='9'/>"),
              "M2,0 A(2,-2; 2,0; 0,-2; -90, 90) 4,-2 A(2,-2; 2,0; 0,-2; 0, 90) 2,-4 "
              "A(2,-2; 2,0; 0,-2; 90, 90) 0,-2 A(2,-2; 2,0; 0,-2; 180, 90) 2,0 Z");
}

TEST(SvgShapes, CirclesAndEllipsesAreOneArc) {
    EXPECT_EQ(Shape("<circle cx='5' cy='6' r='2'/>"), "M7,-6 A(5,-6; 2,0; 0,-2; 0, 360) 7,-6 Z");
    EXPECT_EQ(Shape("<ellipse cx='5' cy='6' rx='2' ry='3'/>"), "M7,-6 A(5,-6; 2,0; 0,-3; 0, 360) 7,-6 Z");
    EXPECT_EQ(Shape("<ellipse rx='2'/>"), Shape("<circle r='2'/>"));
}

TEST(SvgShapes, LinesAndPolylinesAreOpen) {
    EXPECT_EQ(Shape("<line x1='1' y1='2' x2='3' y2='4'/>"), "M1,-2 L3,-4");
    EXPECT_EQ(Shape("<polyline points='0,0 10,0 10,10'/>"), "M0,0 L10,0 L10,-10");
}

TEST(SvgShapes, PolygonsAreClosed) {
    EXPECT_EQ(Shape("<polygon points=' 0 0, 10 0\n10,10 '/>"), "M0,0 L10,0 L10,-10 Z");
    EXPECT_EQ(Shape("<polygon points='0-1 1e1 0 10-10'/>"), "M0,1 L10,0 L10,10 Z");
}

TEST(SvgShapes, PathsHaveACurveForEachCommand) {
    EXPECT_EQ(Shape("<path d='M0 0H10V10Z'/>"), "M0,0 L10,0 L10,-10 Z");
    EXPECT_EQ(Shape("<path d='none'/>"), "");
}

TEST(SvgShapes, WithoutSizeDrawNothing) {
    EXPECT_EQ(Shape("<rect width='10'/>"), "");
    EXPECT_EQ(Shape("<circle cx='3'/>"), "");
    EXPECT_EQ(Shape("<ellipse rx='3' ry='0'/>"), "");
    EXPECT_EQ(Shape("<line/>"), "");
    EXPECT_EQ(Shape("<polygon points=''/>"), "");
    EXPECT_EQ(Shape("<polygon points='1 1'/>"), "");
}

TEST(SvgShapes, TellLengthsInAnyUnit) {
    EXPECT_EQ(Shape("<rect width='1in' height='6pc'/>"), "M0,0 L96,0 L96,-96 L0,-96 Z");
    EXPECT_EQ(Shape("<rect width='25.4MM' height='2.54cm'/>"), "M0,0 L96,0 L96,-96 L0,-96 Z");
    EXPECT_EQ(Shape("<rect width='72pt' height='96px'/>"), "M0,0 L96,0 L96,-96 L0,-96 Z");
    EXPECT_EQ(Shape("<g font-size='10'><rect width='2em' height='2ex'/></g>"), "M0,0 L20,0 L20,-10 L0,-10 Z");
}

TEST(SvgShapes, TellLengthsAsSharesOfTheViewport) {
    const SDrawing drawing =
        ReadSvgText("<svg viewBox='0 0 300 400'><rect width='10%' height='10%'/><circle r='10%'/></svg>");
    EXPECT_EQ(InShort(drawing.m_Paths[0].m_Path), "M0,400 L30,400 L30,360 L0,360 Z");
    EXPECT_EQ(InShort(drawing.m_Paths[1].m_Path),
              "M35.3553,400 A(0,400; 35.3553,0; 0,-35.3553; 0, 360) 35.3553,400 Z");
}

TEST(SvgShapes, AreFaultyWhereTheirNumbersAreNone) {
    EXPECT_EQ(Shape("<rect width='ten' height='5'/>"), " | 1 fault: width is no length: 'ten'");
    EXPECT_EQ(Shape("<rect width='-1' height='5'/>"), " | 1 fault: width or height is negative");
    EXPECT_EQ(Shape("<circle r='-1'/>"), " | 1 fault: a radius is negative");
    EXPECT_EQ(Shape("<polygon points='0,0 1,0 1'/>"),
              " | 1 fault: points are no pairs of numbers: '0,0 1,0 1'");
    EXPECT_EQ(Shape("<circle r='1e999'/>"), " | 1 fault: r is no length: '1e999'");
    EXPECT_EQ(Shape("<circle r='nan'/>"), " | 1 fault: r is no length: 'nan'");
    EXPECT_EQ(Shape("<path d='M0 0L1 1 2'/>"),
              "M0,0 L1,-1 | 1 fault: path data is not understood from character 10 on: '2'");
}

TEST(SvgShapes, KnowTheirLines) {
    const SDrawing drawing = ReadSvgContent("\n<g>\n\n<circle\nr='3'/><line x2='5'/>\n</g><line x2='5'/>");
    ASSERT_EQ(drawing.m_Paths.size(), 3U);
    EXPECT_EQ(drawing.m_Paths[0].m_nLine, 4);
    EXPECT_EQ(drawing.m_Paths[1].m_nLine, 5);
    EXPECT_EQ(drawing.m_Paths[2].m_nLine, 6);
}

}  // namespace

}  // namespace nestrix
