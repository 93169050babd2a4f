#include <gmock/gmock.h>

#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"

namespace nestrix {

namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

SPath Line(SPoint from, SPoint to) {
    return {from, {SLineTo{to}}, false};
}

SPath Rectangle(double left, double bottom, double width, double height) {
    const double right = left + width;
    const double top = bottom + height;
    return {{left, bottom},
            {SLineTo{{right, bottom}}, SLineTo{{right, top}}, SLineTo{{left, top}}, SLineTo{{left, bottom}}},
            true};
}

SPath Circle(SPoint centre, double radius) {
    const SPoint start{centre.m_X + radius, centre.m_Y};
    return {start, {SArcTo{centre, {radius, 0}, {0, radius}, 0, 6.283185307179586, start}}, true};
}

SDrawing DrawingOf(const std::vector<SPath>& paths) {
    SDrawing drawing;
    for (const SPath& path : paths) {
        drawing.m_Paths.push_back({path, "", "", static_cast<int>(drawing.m_Paths.size()) + 1});
    }
    return drawing;
}

SDrawnPieces Found(const std::vector<SPath>& paths) {
    return FindPieces(DrawingOf(paths), "folder/plate.dxf", {});
}

TEST(FoundPieces, AreNoneInAnEmptyDrawing) {
    EXPECT_THAT(Found({}).m_Pieces, IsEmpty());
    EXPECT_THAT(Found({}).m_Findings, IsEmpty());
}

TEST(FoundPieces, HaveWhatIsWithinThemForHoles) {
    const SDrawnPieces found =
        Found({Circle({5, 5}, 1), Rectangle(0, 0, 10, 10), Rectangle(4.5, 4.5, 1, 1), Circle({2, 2}, 1)});
    ASSERT_THAT(found.m_Pieces, SizeIs(2));
    EXPECT_THAT(found.m_Pieces[0].m_Holes, SizeIs(2));
    EXPECT_THAT(found.m_Pieces[1].m_Holes, IsEmpty());
    EXPECT_EQ(found.m_Pieces[1].m_nLine, 3);
    EXPECT_THAT(found.m_Findings, IsEmpty());
}

TEST(FoundPieces, AreMadeOfLooseLines) {
    const SDrawnPieces found = Found({Line({10, 0}, {10, 10}), Line({0, 0}, {10.05, 0}),
                                      Line({0, 10}, {0, 0}), Line({0, 10.02}, {10, 10.02})});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Outline.m_Stretches, SizeIs(4));
    EXPECT_TRUE(found.m_Pieces[0].m_Outline.m_bClosed);
    EXPECT_THAT(found.m_Findings, IsEmpty());
    EXPECT_NEAR(AreaOf(Flattened(found.m_Pieces[0], 0.05)), 100.0, 1.0);
}

TEST(FoundPieces, CarryWhatIsDrawnOnThem) {
    SDrawing drawing = DrawingOf({Rectangle(0, 0, 100, 100), Line({10, 10}, {20, 30})});
    drawing.m_Texts.push_back({"No 7", {20, 20}, 5, 0, false, "", 9});
    drawing.m_Texts.push_back({"Plate", {200, 20}, 5, 0, false, "", 12});
    const SDrawnPieces found = FindPieces(drawing, "a.svg", {});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Marks, ElementsAre(Line({10, 10}, {20, 30})));
    ASSERT_THAT(found.m_Pieces[0].m_Texts, SizeIs(1));
    EXPECT_EQ(found.m_Pieces[0].m_Texts[0].m_Text, "No 7");
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(InWords(found.m_Findings[0]), "a.svg:12: the text \"Plate\" lies on no piece");
}

TEST(FoundPieces, AreNamedForTheirFileIfTheyHaveNoName) {
    SDrawing drawing = DrawingOf({Rectangle(0, 0, 1, 1), Rectangle(2, 0, 1, 1), Rectangle(4, 0, 1, 1)});
    drawing.m_Paths[1].m_Name = "lid";
    const SDrawnPieces found = FindPieces(drawing, "some/box.v2.svg", {});
    ASSERT_THAT(found.m_Pieces, SizeIs(3));
    EXPECT_EQ(found.m_Pieces[0].m_Name, "box.v2");
    EXPECT_EQ(found.m_Pieces[1].m_Name, "lid");
    EXPECT_EQ(found.m_Pieces[2].m_Name, "box.v2-2");
}

TEST(FoundPieces, AreOfTheStripsUnits) {
    SAssembly inches;
    inches.m_Scale = 25.4;
    const SDrawnPieces found = FindPieces(DrawingOf({Rectangle(1, 1, 2, 2)}), "a.svg", inches);
    EXPECT_NEAR(AreaOf(Flattened(found.m_Pieces[0], 0.05)), 4 * 25.4 * 25.4, 1e-9);
}

TEST(FoundPieces, LeaveOpenLinesWithTheirGap) {
    const SDrawnPieces found =
        Found({{{0, 0}, {SLineTo{{9, 0}}, SLineTo{{9, 9}}, SLineTo{{0, 0.4}}}, false}});
    EXPECT_THAT(found.m_Pieces, IsEmpty());
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(found.m_Findings[0].m_eSeverity, SFinding::ESeverity::ODD);
    EXPECT_THAT(found.m_Findings[0].m_Message, HasSubstr("gap of 0.4"));
}

TEST(FoundPieces, LeaveOutLinesThatAreDrawnTwice) {
    const SDrawnPieces found = Found({Rectangle(0, 0, 5, 5), Rectangle(0, 0, 5, 5)});
    EXPECT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Holes, IsEmpty());
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(found.m_Findings[0].m_nLine, 2);
}

}  // namespace

}  // namespace nestrix
