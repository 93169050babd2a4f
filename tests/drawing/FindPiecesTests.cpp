#include <gmock/gmock.h>

#include <limits>

#include "drawing/PathArea.h"
#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"
#include "tests/drawing/DrawnShapes.h"

namespace nestrix {

namespace {

using support::DrawingOf;
using support::DrawnCircle;
using support::DrawnLine;
using support::DrawnRectangle;
using support::Found;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

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

TEST(FoundPieces, LeaveSeveralOpenLinesWithTheirNarrowestGap) {
    const SDrawnPieces found =
        Found({{{0, 0}, {SLineTo{{9, 0}}, SLineTo{{9, 8.7}}}, false}, DrawnLine({9, 9}, {0, 0.2})});
    ASSERT_THAT(found.m_Findings, SizeIs(2));
    EXPECT_EQ(
        InWords(found.m_Findings[0]),
        "folder/plate.dxf:1: an open line from (0, 0) to (9, 8.7) lies on no piece; there is a gap of 0.2 "
        "at (0, 0)");
    EXPECT_THAT(found.m_Findings[1].m_Message, HasSubstr("there is a gap of 0.2 at (0, 0.2)"));
    EXPECT_THAT(Found({DrawnLine({0, 0}, {5, 5})}).m_Findings[0].m_Message,
                HasSubstr("an open line from (0, 0) to (5, 5) lies on no piece"));
}

TEST(FoundPieces, CountWhatIsOddManyTimes) {
    std::vector<SPath> lines;
    for (int i = 0; i < 100; ++i) {
        lines.push_back(DrawnLine({3.0 * i, 0}, {3.0 * i + 1, 1}));
    }
    const SDrawnPieces found = Found(lines);
    ASSERT_THAT(found.m_Findings, SizeIs(21));
    EXPECT_EQ(InWords(found.m_Findings.back()), "folder/plate.dxf: 80 more open lines that lie on no piece");
}

TEST(FoundPieces, HaveNoLinesThatCannotBeCalculatedWith) {
    const double infinity = std::numeric_limits<double>::infinity();
    const SDrawnPieces found = Found(
        {DrawnRectangle(0, 0, infinity, 5), DrawnRectangle(0, 0, 1e250, 5), DrawnRectangle(0, 0, 5, 5)});
    EXPECT_THAT(found.m_Pieces, SizeIs(1));
    ASSERT_THAT(found.m_Findings, SizeIs(2));
    EXPECT_EQ(InWords(found.m_Findings[0]), "folder/plate.dxf:1: a number of this line is not finite");
    EXPECT_EQ(InWords(found.m_Findings[1]),
              "folder/plate.dxf:2: this line is too large to be calculated with");
    EXPECT_EQ(found.m_Findings[1].m_eSeverity, SFinding::ESeverity::FAULT);
    SDrawing drawing;
    drawing.m_Texts.push_back({"A", {0, 0}, infinity, 0, false, "", 4});
    EXPECT_EQ(InWords(FindPieces(drawing, "a.dxf", {}).m_Findings.at(0)),
              "a.dxf:4: a number of the text \"A\" is not finite or too large");
}

TEST(FoundPieces, AreNoneOfADrawingOfTooManyPoints) {
    SAssembly assembly;
    assembly.m_nPointsMost = 100;
    EXPECT_THAT(FindPieces(DrawingOf({DrawnCircle({0, 0}, 3)}), "a.dxf", assembly).m_Pieces, SizeIs(1));
    const SDrawnPieces found =
        FindPieces(DrawingOf({DrawnCircle({0, 0}, 3), DrawnCircle({9, 0}, 1e7)}), "a.dxf", assembly);
    EXPECT_THAT(found.m_Pieces, IsEmpty());
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(InWords(found.m_Findings[0]),
              "a.dxf:2: the drawing is too large: with this line it has more than 100 points");
}

TEST(FoundPieces, MayTouchButNotCrossEachOther) {
    EXPECT_THAT(Found({DrawnRectangle(0, 0, 5, 5), DrawnRectangle(5, 1, 5, 5)}).m_Findings, IsEmpty());
    EXPECT_THAT(Found({DrawnRectangle(0, 0, 9, 9), DrawnRectangle(0, 0, 5, 5)}).m_Findings, IsEmpty())
        << "a hole on the border";
    const SDrawnPieces found = Found({DrawnRectangle(0, 0, 5, 5), DrawnRectangle(4, 1, 5, 5)});
    EXPECT_THAT(found.m_Pieces, SizeIs(2));
    ASSERT_THAT(found.m_Findings, SizeIs(1));
    EXPECT_EQ(InWords(found.m_Findings[0]), "folder/plate.dxf:1: plate: it crosses plate-2 at (4, 5)");
}

TEST(FoundPieces, RunCounterClockwiseAndTheirHolesClockwise) {
    for (const bool bBack : {false, true}) {
        const SPath plate = DrawnRectangle(0, 0, 9, 9);
        const SPath hole = DrawnCircle({4, 4}, 2);
        const SDrawnPieces found = Found({bBack ? Reversed(plate) : plate, bBack ? Reversed(hole) : hole});
        EXPECT_EQ(SignedArea(found.m_Pieces[0].m_Outline), 81.0);
        EXPECT_LT(SignedArea(found.m_Pieces[0].m_Holes[0]), 0.0);
    }
}

TEST(FoundPieces, TakeClosedLinesWithoutAnInsideForMarks) {
    const SPath fold{{2, 2}, {SLineTo{{7, 7}}}, true};
    const SDrawnPieces found = Found({DrawnRectangle(0, 0, 9, 9), fold});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Marks, ElementsAre(fold));
    EXPECT_THAT(Found({fold}).m_Findings, SizeIs(1));
}

TEST(FoundPieces, CarryMarksThatReachBeyondThem) {
    const SDrawnPieces found =
        Found({DrawnRectangle(0, 0, 9, 9),
               DrawnLine({8, 4}, {20, 4}),
               {{1, 1}, {SLineTo{{2, 2}}, SLineTo{{50, 2}}, SLineTo{{60, 2}}}, false}});
    EXPECT_THAT(found.m_Pieces[0].m_Marks, SizeIs(1)) << "the second begins on it";
}

TEST(FoundPieces, DoNotCarryWhatIsInTheirHoles) {
    const SDrawnPieces found =
        Found({DrawnRectangle(0, 0, 9, 9), DrawnRectangle(2, 2, 5, 5), DrawnLine({3, 3}, {4, 4})});
    EXPECT_THAT(found.m_Pieces[0].m_Marks, IsEmpty());
    EXPECT_THAT(found.m_Findings, SizeIs(1));
}

}  // namespace

}  // namespace nestrix
