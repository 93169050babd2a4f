#include <gmock/gmock.h>

#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"
#include "tests/drawing/DrawnShapes.h"

namespace nestrix {

namespace {

using support::DrawingOf;
using support::DrawnCircle;
using support::DrawnLine;
using support::DrawnRectangle;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

SDrawnPieces Found(const std::vector<SPath>& paths) {
    return FindPieces(DrawingOf(paths), "folder/plate.dxf", {});
}

TEST(FoundPieces, AreNoneInAnEmptyDrawing) {
    EXPECT_THAT(Found({}).m_Pieces, IsEmpty());
    EXPECT_THAT(Found({}).m_Findings, IsEmpty());
}

TEST(FoundPieces, HaveWhatIsWithinThemForHoles) {
    const SDrawnPieces found = Found({DrawnCircle({5, 5}, 1), DrawnRectangle(0, 0, 10, 10),
                                      DrawnRectangle(4.5, 4.5, 1, 1), DrawnCircle({2, 2}, 1)});
    ASSERT_THAT(found.m_Pieces, SizeIs(2));
    EXPECT_THAT(found.m_Pieces[0].m_Holes, SizeIs(2));
    EXPECT_THAT(found.m_Pieces[1].m_Holes, IsEmpty());
    EXPECT_EQ(found.m_Pieces[1].m_nLine, 3);
    EXPECT_THAT(found.m_Findings, IsEmpty());
}

TEST(FoundPieces, AreMadeOfLooseLines) {
    const SDrawnPieces found = Found({DrawnLine({10, 0}, {10, 10}), DrawnLine({0, 0}, {10.05, 0}),
                                      DrawnLine({0, 10}, {0, 0}), DrawnLine({0, 10.02}, {10, 10.02})});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Outline.m_Stretches, SizeIs(4));
    EXPECT_TRUE(found.m_Pieces[0].m_Outline.m_bClosed);
    EXPECT_THAT(found.m_Findings, IsEmpty());
    EXPECT_NEAR(AreaOf(Flattened(found.m_Pieces[0], 0.05)), 100.0, 1.0);
}

TEST(FoundPieces, CarryWhatIsDrawnOnThem) {
    SDrawing drawing = DrawingOf({DrawnRectangle(0, 0, 100, 100), DrawnLine({10, 10}, {20, 30})});
    drawing.m_Texts.push_back({"No 7", {20, 20}, 5, 0, false, "", 9});
    drawing.m_Texts.push_back({"Plate", {200, 20}, 5, 0, false, "", 12});
    const SDrawnPieces found = FindPieces(drawing, "a.svg", {});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Marks, ElementsAre(DrawnLine({10, 10}, {20, 30})));
    ASSERT_THAT(found.m_Pieces[0].m_Texts, SizeIs(1));
    EXPECT_EQ(found.m_Pieces[0].m_Texts[0].m_Text, "No 7");
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(InWords(found.m_Findings[0]), "a.svg:12: the text \"Plate\" lies on no piece");
}

TEST(FoundPieces, AreNamedForTheirFileIfTheyHaveNoName) {
    SDrawing drawing =
        DrawingOf({DrawnRectangle(0, 0, 1, 1), DrawnRectangle(2, 0, 1, 1), DrawnRectangle(4, 0, 1, 1)});
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
    const SDrawnPieces found = FindPieces(DrawingOf({DrawnRectangle(1, 1, 2, 2)}), "a.svg", inches);
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
    const SDrawnPieces found = Found({DrawnRectangle(0, 0, 5, 5), DrawnRectangle(0, 0, 5, 5)});
    EXPECT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Holes, IsEmpty());
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(found.m_Findings[0].m_nLine, 2);
}

}  // namespace

}  // namespace nestrix
