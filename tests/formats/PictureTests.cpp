#include <gmock/gmock.h>

#include <cstdlib>
#include <limits>

#include "formats/LabelPoint.h"
#include "formats/PackingSvg.h"
#include "formats/SvgNumber.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CCommaLocale;
using support::CountOf;
using support::CTemporaryFolder;
using support::MakePolygon;
using support::MakeRectangle;
using support::MakeSquare;
using testing::HasSubstr;
using testing::Not;

namespace {

/// Copies of one piece at these places.
SPacking PackCopies(const std::vector<mgVector3>& places, float fHeight) {
    SPacking packing{SStrip(), {}, fHeight};
    for (const mgVector3& at : places) {
        packing.m_Placed.push_back({0, at});
    }
    return packing;
}

std::string DrawCopies(const CPolygon& piece, const std::vector<mgVector3>& places, float fHeight) {
    return DrawPackingSvg({&piece, 1}, PackCopies(places, fHeight));
}

std::string DrawSquares(const std::vector<mgVector3>& places, float fHeight) {
    return DrawCopies(MakeSquare(20.0F), places, fHeight);
}

}  // namespace

TEST(Picture, IsWellFormed) {
    const CTemporaryFolder folder;
    const std::string picture = folder.Write("picture.svg", DrawSquares({{0, 0, 0}, {50, 0, 0}}, 20.0F));
    const std::string check =
        "python3 -c 'import sys, xml.dom.minidom as dom; "
        "assert dom.parse(sys.argv[1]).documentElement.tagName == \"svg\"' " +
        picture;
    EXPECT_EQ(std::system(check.c_str()), 0);
}

TEST(Picture, ShowsEveryOutlineAtItsWorldCoordinates) {
    const std::string picture = DrawSquares({{0, 0, 0}, {50.25F, 12.5F, 0}, {7, 40, 0}}, 60.0F);
    EXPECT_EQ(CountOf("<polygon ", picture), 3);
    EXPECT_THAT(picture, HasSubstr("points=\"50.25,12.5 70.25,12.5 70.25,32.5 50.25,32.5\""));
}

TEST(Picture, NumbersThePiecesInDropOrderFromOne) {
    const std::string picture = DrawSquares({{0, 0, 0}, {50, 0, 0}, {7, 40, 0}}, 60.0F);
    const size_t nFirst = picture.find(">1</text>");
    const size_t nSecond = picture.find(">2</text>");
    const size_t nThird = picture.find(">3</text>");
    ASSERT_NE(nThird, std::string::npos);
    EXPECT_LT(nFirst, nSecond);
    EXPECT_LT(nSecond, nThird);
    EXPECT_THAT(picture, Not(HasSubstr(">4</text>")));
}

TEST(Picture, GrowsUpwardAndKeepsItsTextsReadable) {
    const std::string picture = DrawSquares({{0, 0, 0}}, 20.0F);
    EXPECT_EQ(CountOf("scale(1 -1)", picture), 1);
    const size_t nTurned = picture.find("scale(1 -1)");
    const std::string turned = picture.substr(nTurned, picture.find("</g>", nTurned) - nTurned);
    EXPECT_THAT(turned, HasSubstr("<polygon"));
    EXPECT_THAT(turned, Not(HasSubstr("<text")));
}

TEST(Picture, CarriesTheHeightAsALineAndACaption) {
    const std::string picture = DrawSquares({{0, 123.456F - 20.0F, 0}}, 123.456F);
    EXPECT_THAT(picture, HasSubstr(">Minimum Height = 123.46</text>"));
    EXPECT_THAT(picture, HasSubstr("<line x1=\"0\" y1=\"-123.456\" x2=\"400\" y2=\"-123.456\"/>"));
}

TEST(Picture, HasTwoWallsAndAFloor) {
    const std::string picture = DrawSquares({{0, 0, 0}}, 20.0F);
    EXPECT_THAT(picture, HasSubstr("<line x1=\"0\" y1=\"-32\" x2=\"0\" y2=\"0\"/>"));
    EXPECT_THAT(picture, HasSubstr("<line x1=\"0\" y1=\"0\" x2=\"400\" y2=\"0\"/>"));
    EXPECT_THAT(picture, HasSubstr("<line x1=\"400\" y1=\"0\" x2=\"400\" y2=\"-32\"/>"));
}

TEST(Picture, OfNothingIsAnEmptyStrip) {
    const std::string picture = DrawPackingSvg({}, SPacking());
    EXPECT_THAT(picture, HasSubstr("Packing of 0 pieces"));
    EXPECT_THAT(picture, HasSubstr("Minimum Height = 0.00"));
}

TEST(Picture, EnclosesWhatSticksOutOfTheStrip) {
    const CPolygon wide = MakeRectangle(500.0F, 10.0F);
    const SPictureView view = FindPictureView({&wide, 1}, PackCopies({{-100, 0, 0}}, 10.0F));
    EXPECT_EQ(view.m_Left, -100.0);
    EXPECT_EQ(view.m_Right, 400.0);
    EXPECT_EQ(view.m_Bottom, 0.0);
    EXPECT_EQ(view.m_Top, 10.0);
}

TEST(Picture, OfALargePackingHasLargerTextsAndLines) {
    EXPECT_EQ(FindPictureView({}, {SStrip{400.0F}, {}, 600.0F}).m_Scale, 1.0);
    EXPECT_EQ(FindPictureView({}, {SStrip{400.0F}, {}, 1200.0F}).m_Scale, 2.0);
    EXPECT_EQ(FindPictureView({}, {SStrip{1800.0F}, {}, 600.0F}).m_Scale, 3.0);
}

TEST(Picture, NumbersAPieceWithoutRoomInTheSmallestSize) {
    EXPECT_THAT(DrawCopies(MakeSquare(0.5F), {{0, 0, 0}}, 0.5F), HasSubstr("font-size=\"2.5\">1</text>"));
}

TEST(Picture, WithANumberThatIsNotFiniteIsNotDrawn) {
    const float fInfinity = std::numeric_limits<float>::infinity();
    const float fLargest = std::numeric_limits<float>::max();
    EXPECT_EQ(DrawSquares({{0, 0, 0}}, fInfinity), "");
    EXPECT_EQ(DrawSquares({{0, 0, 0}}, std::numeric_limits<float>::quiet_NaN()), "");
    EXPECT_EQ(DrawSquares({{0, -fInfinity, 0}}, 20.0F), "");
    EXPECT_EQ(DrawPackingSvg({}, SPacking{SStrip{fInfinity}, {}, 20.0F}), "");
    EXPECT_EQ(DrawCopies(MakeSquare(fLargest), {{fLargest, 0, 0}}, 20.0F), "");
}

TEST(Picture, OfTheLargestNumbersNamesOnlyFiniteOnes) {
    const float fLargest = std::numeric_limits<float>::max();
    const std::string picture = DrawCopies(MakeSquare(fLargest), {{0, 0, 0}}, fLargest);
    EXPECT_THAT(picture, HasSubstr("</svg>"));
    EXPECT_THAT(picture, Not(HasSubstr("inf\"")));
    EXPECT_THAT(picture, Not(HasSubstr("nan")));
}

TEST(Picture, IsTheSameUnderADecimalComma) {
    const std::string expected = DrawSquares({{1.5F, 2.5F, 0}}, 22.5F);
    const CCommaLocale locale;
    EXPECT_EQ(DrawSquares({{1.5F, 2.5F, 0}}, 22.5F), expected);
}

TEST(ScaleStep, IsARoundNumberAndGivesAtMostTenSteps) {
    EXPECT_EQ(FindScaleStep(400.0), 50.0);
    EXPECT_EQ(FindScaleStep(500.0), 50.0);
    EXPECT_EQ(FindScaleStep(501.0), 100.0);
    EXPECT_EQ(FindScaleStep(1001.0), 200.0);
    for (double extent = 1.0; extent < 1e30; extent *= 1.7) {
        EXPECT_LE(extent / FindScaleStep(extent), 10.0 + 1e-9);
    }
}

TEST(SvgNumber, KeepsAFloatExactly) {
    for (const float fValue : {0.1F, 1.0F / 3.0F, 123.456F, 1e-30F, 3.4028235e38F, -7.25F}) {
        EXPECT_EQ(std::strtof(SvgNumber(fValue).c_str(), nullptr), fValue);
    }
}

TEST(SvgNumber, HasNoNegativeZero) {
    EXPECT_EQ(SvgNumber(-0.0F), "0");
    EXPECT_EQ(SvgNumber(-0.0), "0");
}

TEST(LabelPoint, OfARectangleIsItsMiddle) {
    const SLabelPoint label =
        FindLabelPoint(EdgesOf(MakePolygon({{10, 10, 0}, {110, 10, 0}, {110, 30, 0}, {10, 30, 0}})));
    EXPECT_DOUBLE_EQ(label.m_X, 60.0);
    EXPECT_DOUBLE_EQ(label.m_Y, 20.0);
    EXPECT_DOUBLE_EQ(label.m_Room, 10.0);
}

TEST(LabelPoint, OfAUShapeLiesInOneOfItsArms) {
    const SLabelPoint label = FindLabelPoint(EdgesOf(MakePolygon({{0, 0, 0},
                                                                  {60, 0, 0},
                                                                  {60, 60, 0},
                                                                  {50, 60, 0},
                                                                  {50, 10, 0},
                                                                  {10, 10, 0},
                                                                  {10, 60, 0},
                                                                  {0, 60, 0}})));
    EXPECT_GT(label.m_Room, 3.0);
    EXPECT_TRUE(label.m_X < 10.0 || label.m_X > 50.0 || label.m_Y < 10.0);
}

TEST(LabelPoint, OfAPolygonWithoutVerticesHasNoRoom) {
    EXPECT_EQ(FindLabelPoint({}).m_Room, 0.0);
}

TEST(LabelPoint, OfAPolygonWithoutAnInsideIsTheMiddleOfItsExtent) {
    const SLabelPoint label = FindLabelPoint(EdgesOf(MakePolygon({{0, 0, 0}, {10, 20, 0}, {0, 0, 0}})));
    EXPECT_DOUBLE_EQ(label.m_X, 5.0);
    EXPECT_DOUBLE_EQ(label.m_Y, 10.0);
    EXPECT_DOUBLE_EQ(label.m_Room, 0.0);
}

}  // namespace nestrix
