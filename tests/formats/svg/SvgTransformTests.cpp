#include <gtest/gtest.h>

#include "tests/formats/svg/InShort.h"

namespace nestrix {

namespace {

/// Where a transform takes the points (1, 0) and (0, 2) of the file, there with y down.
std::string Transformed(const std::string& transform) {
    const SDrawing drawing = ReadSvgContent("<line x1='1' y2='2' transform='" + transform + "'/>");
    return InShort(drawing) + InShort(drawing.m_Findings);
}

TEST(SvgTransforms, AreOfAllKinds) {
    EXPECT_EQ(Transformed("matrix(1 2 3 4 5 6)"), "M6,-8 L11,-14");
    EXPECT_EQ(Transformed("translate(10)"), "M11,0 L10,-2");
    EXPECT_EQ(Transformed("translate(10, 20)"), "M11,-20 L10,-22");
    EXPECT_EQ(Transformed("scale(3)"), "M3,0 L0,-6");
    EXPECT_EQ(Transformed("scale(3 -4)"), "M3,0 L0,8");
    EXPECT_EQ(Transformed("rotate(90)"), "M0,-1 L-2,0");
    EXPECT_EQ(Transformed("rotate(90 10 10)"), "M20,-1 L18,0");
    EXPECT_EQ(Transformed("skewX(45)"), "M1,0 L2,-2");
    EXPECT_EQ(Transformed("skewY(45)"), "M1,-1 L0,-2");
    EXPECT_EQ(Transformed("none"), "M1,0 L0,-2");
}

TEST(SvgTransforms, OfAListAreAppliedTheLastFirst) {
    EXPECT_EQ(Transformed("translate(10) scale(2)"), "M12,0 L10,-4");
    EXPECT_EQ(Transformed("scale(2),translate(10)"), "M22,0 L20,-4");
}

TEST(SvgTransforms, OfGroupsAreAppliedAfterThoseInside) {
    const SDrawing drawing = ReadSvgContent(
        "<g transform='translate(10)'><g transform='scale(2)'><line x2='1'/></g></g><line x2='1'/>");
    EXPECT_EQ(InShort(drawing), "M10,0 L12,0 M0,0 L1,0");
}

TEST(SvgTransforms, MapArcsAndCurvesExactly) {
    EXPECT_EQ(InShort(ReadSvgContent("<circle r='2' transform='skewX(45)'/>")),
              "M2,0 A(0,0; 2,0; 2,-2; 0, 360) 2,0 Z");
    EXPECT_EQ(InShort(ReadSvgContent("<path transform='scale(2 1)' d='M0 0C1 1 2 1 3 0'/>")),
              "M0,0 C2,-1 4,-1 6,0");
}

TEST(SvgTransforms, ThatAreNotUnderstoodAreFaults) {
    EXPECT_EQ(Transformed("rotate(x)"), "M1,0 L0,-21 fault: transform is not understood: 'rotate(x)'");
    EXPECT_EQ(Transformed("spin(3)"), "M1,0 L0,-21 fault: transform is not understood: 'spin(3)'");
    EXPECT_EQ(Transformed("rotate(1 2)"), "M1,0 L0,-21 fault: transform is not understood: 'rotate(1 2)'");
}

}  // namespace

}  // namespace nestrix
