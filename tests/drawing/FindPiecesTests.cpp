#include <gmock/gmock.h>

#include <algorithm>
#include <limits>
#include <numbers>
#include <utility>

#include "drawing/PathArea.h"
#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"
#include "tests/drawing/DrawnShapes.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using std::numbers::pi;
using support::CSeededRandom;
using support::DrawingOf;
using support::DrawnCircle;
using support::DrawnLine;
using support::DrawnRectangle;
using support::RandomCases;
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

/// The shapes of pieces, in an order of their own.
std::vector<SShape> ShapesOf(const SDrawnPieces& found) {
    std::vector<SShape> shapes;
    for (const SDrawnPiece& piece : found.m_Pieces) {
        shapes.push_back(Flattened(piece, 0.05));
    }
    const auto keyOf = [](const SShape& shape) { return std::pair(AreaOf(shape), shape.m_Outline.size()); };
    std::sort(shapes.begin(), shapes.end(),
              [&](const SShape& a, const SShape& b) { return keyOf(a) < keyOf(b); });
    return shapes;
}

/// Contours with others within them, some of which have others within them.
std::vector<SPath> RandomScene(CSeededRandom& random) {
    std::vector<SPath> contours;
    for (int i = random.Range(1, 4); i > 0; --i) {
        const SPoint centre{25.0 * i, 3};
        double radius = 10;
        for (int k = random.Range(1, 4); k > 0; --k) {
            contours.push_back(support::RandomContour(random, centre, radius));
            radius /= 3;
        }
    }
    return contours;
}

TEST(RandomScenes, AreFoundAgainFromChoppedAndShuffledLines) {
    CSeededRandom random(20);
    for (int i = 0; i < RandomCases(100); ++i) {
        const std::vector<SPath> contours = RandomScene(random);
        const std::vector<SShape> shapes = ShapesOf(Found(contours));
        for (int k = 0; k < 2; ++k) {
            std::vector<SPath> lines;
            for (const SPath& contour : contours) {
                const std::vector<SPath> parts = support::Chopped(random, contour);
                lines.insert(random.Percent(50) ? lines.begin() : lines.end(), parts.begin(), parts.end());
            }
            const SDrawnPieces found = Found(lines);
            EXPECT_THAT(found.m_Findings, IsEmpty());
            const std::vector<SShape> again = ShapesOf(found);
            ASSERT_EQ(again.size(), shapes.size());
            for (size_t n = 0; n < shapes.size(); ++n) {
                EXPECT_NEAR(AreaOf(again[n]), AreaOf(shapes[n]), 1e-6);
                EXPECT_EQ(again[n].m_Holes.size(), shapes[n].m_Holes.size());
            }
        }
    }
}

TEST(RandomScenes, AreTheSameMirroredTurnedAndShifted) {
    CSeededRandom random(21);
    for (int i = 0; i < RandomCases(100); ++i) {
        const std::vector<SPath> contours = RandomScene(random);
        const SDirection turn = DirectionOf(random.Between(0, 360));
        const double mirror = random.Percent(50) ? -1.0 : 1.0;
        const SMap map{turn.m_Cosine * mirror,  -turn.m_Sine,           turn.m_Sine * mirror, turn.m_Cosine,
                       random.Between(-99, 99), random.Between(-99, 99)};
        std::vector<SPath> mapped;
        for (const SPath& contour : contours) {
            mapped.push_back(map(contour));
        }
        const SDrawnPieces found = Found(contours);
        const SDrawnPieces again = Found(mapped);
        ASSERT_EQ(again.m_Pieces.size(), found.m_Pieces.size());
        for (size_t n = 0; n < found.m_Pieces.size(); ++n) {
            const SShape shape = Flattened(found.m_Pieces[n], 0.05);
            const SShape mappedShape = Flattened(again.m_Pieces[n], 0.05);
            // Mirrored, curves are walked the other way round, and their corners come to lie elsewhere.
            EXPECT_NEAR(AreaOf(mappedShape), AreaOf(shape), mirror > 0 ? 1e-6 : 0.02 * AreaOf(shape));
            EXPECT_EQ(mappedShape.m_Holes.size(), shape.m_Holes.size());
        }
    }
}

TEST(FoundPieces, AreOneWhereTheyAreDrawnTwice) {
    const SPath plate = DrawnRectangle(0, 0, 5, 5);
    const SPath elsewhere{{5, 5}, {SLineTo{{5, 0}}, SLineTo{{0, 0}}, SLineTo{{0, 5}}}, true};
    const SPath disc = DrawnCircle({20, 0}, 3);
    const SPath halves{
        {17, 0},
        {SArcTo{{20, 0}, {3, 0}, {0, 3}, -pi, pi, {23, 0}}, SArcTo{{20, 0}, {3, 0}, {0, 3}, 0, pi, {17, 0}}},
        true};
    for (const std::vector<SPath>& twice : {std::vector{plate, plate},
                                            {plate, Reversed(plate)},
                                            {plate, elsewhere},
                                            {disc, halves},
                                            {DrawnLine({0, 0}, {5, 0}), DrawnLine({5, 0}, {5, 5}), plate,
                                             DrawnLine({5, 5}, {0, 5}), DrawnLine({0, 0}, {0, 5})}}) {
        const SDrawnPieces found = Found(twice);
        ASSERT_THAT(found.m_Pieces, SizeIs(1));
        EXPECT_THAT(found.m_Pieces[0].m_Holes, IsEmpty());
        ASSERT_THAT(found.m_Findings, SizeIs(1));
        EXPECT_EQ(found.m_Findings[0].m_eSeverity, SFinding::ESeverity::ODD);
        EXPECT_THAT(found.m_Findings[0].m_Message, HasSubstr("is drawn twice"));
    }
}

TEST(FoundPieces, AreMadeOfLooseLinesOfWhichSomeAreDrawnTwice) {
    const SDrawnPieces found =
        Found({DrawnLine({0, 0}, {5, 0}), DrawnLine({5, 0}, {0, 0}), DrawnLine({5, 0}, {5, 5}),
               DrawnLine({5, 5}, {0, 0}), DrawnLine({5, 5}, {0, 0})});
    ASSERT_THAT(found.m_Pieces, SizeIs(1));
    EXPECT_THAT(found.m_Pieces[0].m_Marks, IsEmpty());
    ASSERT_THAT(found.m_Findings, SizeIs(2));
    EXPECT_EQ(found.m_Findings[0].m_nLine, 2);
    EXPECT_EQ(found.m_Findings[1].m_nLine, 5);
}

TEST(FoundPieces, AreTwoWhereOnlyTheirExtentIsTheSame) {
    const SPath up{{0, 0}, {SLineTo{{6, 0}}, SLineTo{{3, 6}}}, true};
    const SPath down{{0, 6}, {SLineTo{{6, 6}}, SLineTo{{3, 0}}}, true};
    EXPECT_THAT(Found({up, down}).m_Pieces, SizeIs(2));
}

}  // namespace

}  // namespace nestrix
