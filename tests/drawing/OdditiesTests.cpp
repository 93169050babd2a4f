#include "drawing/Oddities.h"

#include <gmock/gmock.h>

#include <cmath>
#include <limits>
#include <numbers>

#include "tests/support/FreePieces.h"

namespace nestrix {

namespace {

using support::PieceOf;
using support::RectangleRing;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

constexpr SFreeStrip STRIP{100.0, 0.0, 0.0};

std::vector<std::string> OdditiesOf(const SPiece& piece, const std::optional<SFreeStrip>& strip = STRIP) {
    std::vector<std::string> messages;
    for (const SFinding& finding : FindOddities(piece, strip, "a.json", 3)) {
        EXPECT_EQ(finding.m_File, "a.json");
        EXPECT_EQ(finding.m_nLine, 3);
        const std::string severity = finding.m_eSeverity == SFinding::ESeverity::FAULT ? "fault: " : "odd: ";
        messages.push_back(severity + finding.m_Message);
    }
    return messages;
}

CRing Backwards(CRing ring) {
    return {ring.rbegin(), ring.rend()};
}

TEST(Oddities, AreNoneOfASoundPiece) {
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(1, 2, 30, 40), {RectangleRing(5, 5, 2, 2)})), IsEmpty());
    EXPECT_THAT(OdditiesOf(support::RegularPiece(200, 40.0)), IsEmpty());
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(1, 2, 3000, 4000)), std::nullopt), IsEmpty());
}

TEST(Oddities, NameThePiece) {
    SPiece piece = PieceOf(Backwards(RectangleRing(0, 0, 9, 9)));
    piece.m_Name = "lid";
    EXPECT_THAT(OdditiesOf(piece), ElementsAre("odd: lid: its outline runs clockwise"));
}

TEST(Oddities, AreNumbersThatAreNotFinite) {
    const double infinity = std::numeric_limits<double>::infinity();
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {1, -infinity}, {1, 1}})),
                ElementsAre("fault: a number of its outline is not finite: (1, -inf)"));
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(0, 0, 9, 9), {{{1, 1}, {NAN, 2}, {2, 1}}})),
                ElementsAre("fault: a number of its hole 1 is not finite: (nan, 2)"));
}

TEST(Oddities, AreNumbersTooLargeToCalculateWith) {
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {1e200, 0}, {0, 1e200}})),
                ElementsAre(HasSubstr("fault: it is too large")));
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {1e100, 0}, {0, 1e100}})),
                testing::Contains(HasSubstr("fault: it is too large")));
}

TEST(Oddities, AreOutlinesWithoutAnInside) {
    EXPECT_THAT(OdditiesOf(PieceOf({})), ElementsAre("fault: it has no outline"));
    for (const CRing& ring : {CRing{{1, 1}}, CRing{{1, 1}, {5, 5}}, CRing{{0, 0}, {5, 5}, {9, 9}}}) {
        EXPECT_THAT(OdditiesOf(PieceOf(ring)), ElementsAre("fault: its outline has no inside"));
    }
}

TEST(Oddities, AreCornersThatAreNone) {
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {5, 0}, {9, 0}, {9, 0}, {9, 9}, {0, 9}, {0, 0}})),
                ElementsAre("odd: 2 corners repeat the one before, the first at (0, 0)",
                            "odd: a corner lies in the middle of a straight line, at (5, 0)"));
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {9, 0}, {9, 9}, {9, 15}, {9, 9}, {0, 9}})),
                testing::Contains("odd: a corner is where the line runs back on itself, at (9, 15)"));
    EXPECT_THAT(OdditiesOf(PieceOf({{0.1, 0.1}, {0.2, 0.2}, {0.7, 0.7}, {0.1, 9}})),
                ElementsAre("odd: a corner lies in the middle of a straight line, at (0.2, 0.2)"));
}

TEST(Oddities, AreOutlinesThatCrossThemselves) {
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {8, 8}, {8, 0}, {0, 8}})),
                ElementsAre("fault: its outline crosses itself at (4, 4)"));
    // Through a corner on an edge, and through two corners at one place.
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {8, 0}, {8, 4}, {4, 0}, {2, -4}, {0, -4}})),
                testing::Contains("fault: its outline crosses itself at (4, 0)"));
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {5, 5}, {10, 9}, {10, 0}, {5, 5}, {0, 10}})),
                testing::Contains("fault: its outline crosses itself at (5, 5)"));
}

TEST(Oddities, AreNotOutlinesThatTouchThemselves) {
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {8, 0}, {8, 8}, {4, 0}, {0, 8}})), IsEmpty());
    EXPECT_THAT(OdditiesOf(PieceOf({{0, 0}, {4, 2}, {8, 0}, {8, 9}, {4, 2}, {0, 9}})), IsEmpty());
}

TEST(Oddities, AreHolesThatAreNotWithin) {
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(0, 0, 9, 9), {RectangleRing(5, 5, 8, 2)})),
                ElementsAre("fault: its outline crosses its hole 1 at (9, 5)"));
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(0, 0, 9, 9), {RectangleRing(20, 5, 8, 2)})),
                ElementsAre("fault: its hole 1 lies outside of its outline"));
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(0, 0, 9, 9),
                                   {RectangleRing(1, 1, 5, 5), RectangleRing(2, 2, 1, 1)})),
                ElementsAre("fault: its outline or one of its holes lies over another part of it"));
}

TEST(Oddities, ArePiecesThatAreTooWideInAllTheirTurns) {
    SPiece piece = PieceOf(RectangleRing(0, 0, 120, 30));
    EXPECT_THAT(OdditiesOf(piece), ElementsAre("fault: it is 120 wide, and the strip has room for 100"));
    piece.m_Turns.m_Degrees = {0.0, 90.0};
    EXPECT_THAT(OdditiesOf(piece), IsEmpty());
    EXPECT_THAT(OdditiesOf(piece, SFreeStrip{30.0, 0.0, 0.0}), IsEmpty());
    EXPECT_THAT(OdditiesOf(piece, SFreeStrip{34.0, 0.0, 2.5}),
                ElementsAre("fault: it is 30 wide in its narrowest turn, and the strip has room for 29"));
    const SPiece triangle = PieceOf({{0, 0}, {100, 0}, {0, 100}});
    SPiece turned = triangle;
    turned.m_Turns.m_bAny = true;
    EXPECT_NEAR(NarrowestWidth(turned), 100 / std::numbers::sqrt2, 1e-9);
    EXPECT_EQ(NarrowestWidth(triangle), 100.0);
}

TEST(Oddities, OfAMirroredPieceAreThoseOfItsNarrowerSide) {
    SPiece piece = PieceOf({{0, 0}, {10, 0}, {90, 80}, {80, 80}});
    piece.m_Turns.m_Degrees = {45.0};
    EXPECT_NEAR(NarrowestWidth(piece), 10 / std::numbers::sqrt2, 10.0);
    const double unmirrored = NarrowestWidth(piece);
    piece.m_bMirrored = true;
    const double either = NarrowestWidth(piece);
    piece.m_Turns.m_Degrees = {-45.0};
    EXPECT_NEAR(NarrowestWidth(piece), either, 1e-9) << "mirrored, the two turns change places";
    EXPECT_LE(either, unmirrored);
}

TEST(Oddities, ArePiecesTooSmallToBeMeant) {
    EXPECT_THAT(OdditiesOf(PieceOf(RectangleRing(0, 0, 0.05, 0.02))),
                ElementsAre("odd: it is tiny: 0.05 by 0.02 in a strip of 100"));
}

}  // namespace

}  // namespace nestrix
