#include <gmock/gmock.h>

#include <cstdlib>
#include <sstream>

#include "formats/FreePackingSvg.h"
#include "formats/LabelPoint.h"
#include "formats/PictureView.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CCommaLocale;
using support::CountOf;
using support::CTemporaryFolder;
using testing::HasSubstr;
using testing::Not;

namespace {

CRing Rectangle(double left, double bottom, double right, double top) {
    return {{left, bottom}, {right, bottom}, {right, top}, {left, top}};
}

/// A frame of 40 by 40 with a hole of 20 by 20, and a flat piece of 30 by 10.
const std::vector<SPiece> FRAME_AND_BAR{
    {"frame", {Rectangle(0, 0, 40, 40), {Rectangle(10, 10, 30, 30)}}, 1, {}, false},
    {"bar", {Rectangle(0, 0, 30, 10), {}}, 2, {}, false}};

/// The frame on the floor, a bar turned upright beside it, and one that lies mirrored and turned elsewhere.
SFreePacking PackFrameAndBars() {
    SFreePacking packing{{100.0, 0.0, 0.0}, {-2}, {}, 0};
    packing.m_Placed = {{0, false, 0.0, {0, 0}}, {1, false, 90.0, {5125, 0}}, {1, true, 0.0, {9999, 1}}};
    packing.m_nHeight = HeightOf(PlacedShapes(FRAME_AND_BAR, packing));
    return packing;
}

std::string DrawFrameAndBars() {
    return DrawFreePackingSvg(FRAME_AND_BAR, PackFrameAndBars());
}

/// The values of all attributes of this name.
std::vector<std::string> ValuesOf(const std::string& attribute, const std::string& picture) {
    const std::string before = " " + attribute + "=\"";
    std::vector<std::string> values;
    for (size_t nAt = picture.find(before); nAt != std::string::npos; nAt = picture.find(before, nAt + 1)) {
        const size_t nFrom = nAt + before.size();
        values.push_back(picture.substr(nFrom, picture.find('"', nFrom) - nFrom));
    }
    return values;
}

}  // namespace

TEST(FreePicture, IsWellFormed) {
    const CTemporaryFolder folder;
    const std::string picture = folder.Write("picture.svg", DrawFrameAndBars());
    const std::string check =
        "python3 -c 'import sys, xml.dom.minidom as dom; "
        "assert dom.parse(sys.argv[1]).documentElement.tagName == \"svg\"' " +
        picture;
    EXPECT_EQ(std::system(check.c_str()), 0);
}

TEST(FreePicture, ShowsEveryPieceAsAPathWithItsHoles) {
    const std::string picture = DrawFrameAndBars();
    EXPECT_EQ(CountOf("<path ", picture), 3);
    EXPECT_EQ(CountOf("fill-rule=\"evenodd\"", picture), 3);
    EXPECT_EQ(ValuesOf("d", picture).at(0), "M0,0 40,0 40,40 0,40Z M10,10 30,10 30,30 10,30Z");
}

TEST(FreePicture, ShowsPiecesTurnedAndMirroredAsTheyLie) {
    const std::vector<std::string> paths = ValuesOf("d", DrawFrameAndBars());
    EXPECT_EQ(paths.at(1), "M51.25,0 51.25,30 41.25,30 41.25,0Z");
    EXPECT_EQ(paths.at(2), "M99.99,0.01 69.99,0.01 69.99,10.01 99.99,10.01Z");
}

TEST(FreePicture, WritesEveryPointWithAllDigitsOfTheGrid) {
    SFreePacking packing{{400.0, 0.0, 0.0}, {-5}, {{1, false, 0.0, {12345678, 30000001}}}, 0};
    packing.m_nHeight = HeightOf(PlacedShapes(FRAME_AND_BAR, packing));
    EXPECT_THAT(DrawFreePackingSvg(FRAME_AND_BAR, packing),
                HasSubstr("M123.45678,300.00001 153.45678,300.00001"));
}

TEST(FreePicture, NumbersThePiecesInTheOrderOfPlacing) {
    const std::string picture = DrawFrameAndBars();
    for (char const* const pNumber : {">1</text>", ">2</text>", ">3</text>"}) {
        EXPECT_EQ(CountOf(pNumber, picture), 1) << pNumber;
    }
    EXPECT_LT(picture.find(">1</text>"), picture.find(">2</text>"));
    EXPECT_LT(picture.find(">2</text>"), picture.find(">3</text>"));
}

TEST(FreePicture, GivesCopiesOfAPieceOneColourAndPiecesDifferentOnes) {
    const std::string picture = DrawFrameAndBars();
    const std::string pieces = picture.substr(picture.find("<path"));
    const std::vector<std::string> fills = ValuesOf("fill", pieces);
    EXPECT_NE(fills.at(0), fills.at(1));
    EXPECT_EQ(fills.at(1), fills.at(2));
}

TEST(FreePicture, TellsHeightAndDensityInItsCaption) {
    // 1600 less 400, and twice 300, of 100 by 40.
    EXPECT_THAT(DrawFrameAndBars(), HasSubstr(">Height 40, density 45.0 %</text>"));
}

TEST(FreePicture, DrawsTheMarginWhereThereIsOne) {
    EXPECT_THAT(DrawFrameAndBars(), Not(HasSubstr("class=\"margin\"")));
    SFreePacking packing = PackFrameAndBars();
    packing.m_Strip.m_Margin = 2.5;
    const std::string picture = DrawFreePackingSvg(FRAME_AND_BAR, packing);
    EXPECT_THAT(picture, HasSubstr("class=\"margin\""));
    EXPECT_THAT(picture, HasSubstr("<line x1=\"2.5\" y1=\"-2.5\" x2=\"97.5\" y2=\"-2.5\"/>"));
}

TEST(FreePicture, HasTheStripsWidth) {
    EXPECT_THAT(DrawFrameAndBars(), HasSubstr("<line x1=\"0\" y1=\"0\" x2=\"100\" y2=\"0\"/>"));
}

TEST(FreePicture, OfNothingIsAnEmptyStrip) {
    const std::string picture = DrawFreePackingSvg({}, SFreePacking());
    EXPECT_THAT(picture, HasSubstr("Packing of 0 pieces"));
    EXPECT_THAT(picture, HasSubstr("Height 0, density 0.0 %"));
}

TEST(FreePicture, IsTheSameUnderADecimalComma) {
    const std::string expected = DrawFrameAndBars();
    const CCommaLocale locale;
    EXPECT_EQ(DrawFrameAndBars(), expected);
}

TEST(FreePicture, HasTextsThatFitItsStripHoweverSmallOrNarrow) {
    const auto scaleOf = [](double width, int64_t nHeight) {
        return FindPictureView(SFreePacking{{width, 0.0, 0.0}, {0}, {}, nHeight}).m_Scale;
    };
    EXPECT_EQ(scaleOf(600.0, 300), 1.0);
    EXPECT_EQ(scaleOf(6.0, 3), 0.01);
    EXPECT_EQ(scaleOf(400.0, 1200), 2.0);
    EXPECT_EQ(scaleOf(20.0, 6000), 0.1);
}

TEST(FreePicture, OfASmallStripHasAScaleWithSmallSteps) {
    EXPECT_EQ(FindScaleStep(0.4), 0.05);
    EXPECT_EQ(FindScaleStep(4.0), 0.5);
}

TEST(LabelPoint, OfAFrameLiesBesideItsHole) {
    const SGridShape frame = OnGrid(FRAME_AND_BAR[0].m_Shape, {-2});
    const SLabelPoint label = FindLabelPoint(EdgesOf(frame, {-2}));
    EXPECT_GT(label.m_Room, 4.0);
    EXPECT_FALSE(label.m_X > 10.0 && label.m_X < 30.0 && label.m_Y > 10.0 && label.m_Y < 30.0);
}

}  // namespace nestrix
