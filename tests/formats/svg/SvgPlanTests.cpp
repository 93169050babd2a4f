#include "formats/svg/SvgPlan.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <pugixml.hpp>

#include "drawing/SMap.h"
#include "formats/svg/SvgArc.h"
#include "formats/svg/SvgText.h"
#include "packing/PointVectors.h"
#include "tests/formats/svg/InShort.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

namespace {

using testing::HasSubstr;
using testing::Not;

constexpr double PI = std::numbers::pi;

/// A packing of few drawn pieces, with all that a plan views.
struct SPlanned {
    std::vector<SPiece> m_Pieces;
    std::vector<SDrawnPiece> m_Drawn;
    SFreePacking m_Packing;
    std::optional<EUnit> m_Unit = EUnit::MILLIMETRE;

    [[nodiscard]] SCutPlan Plan() const { return {m_Pieces, m_Drawn, m_Packing, m_Unit}; }
    [[nodiscard]] std::string Write() const { return WriteSvgPlan(Plan()); }
};

SPath Circle(SPoint centre, double radius) {
    const SPoint start{centre.m_X + radius, centre.m_Y};
    return {start, {SArcTo{centre, {radius, 0}, {0, radius}, 0.0, 2.0 * PI, start}}, true};
}

/// 60 by 40 with a round end, a curved side, a hole, a fold line and a text on it.
SDrawnPiece Bracket() {
    SDrawnPiece piece;
    piece.m_Name = "left <bracket> & \"arm\"";
    piece.m_Outline = {{10, 10},
                       {SLineTo{{50, 10}}, SArcTo{{50, 30}, {20, 0}, {0, 20}, -PI / 2.0, PI, {50, 50}},
                        SLineTo{{10, 50}}, SCurveTo{{0, 40}, {20, 20}, {10, 10}}},
                       true};
    piece.m_Holes = {Circle({50, 30}, 8)};
    piece.m_Marks = {{{20, 15}, {SLineTo{{20, 45}}}, false}};
    piece.m_Texts = {{"A & B", {25, 20}, 4.0, 0.0, false, "", 0}};
    return piece;
}

/// Its polygon: coarse, but with the right corner.
SShape BracketShape() {
    return {{{10, 10}, {50, 10}, {70, 30}, {50, 50}, {10, 50}}, {{{42, 30}, {50, 22}, {58, 30}, {50, 38}}}};
}

SFreePlacement At(double degrees, bool bMirrored, double x, double y, const SGrid& grid) {
    return {0, bMirrored, degrees, {grid.Count(x), grid.Count(y)}};
}

SPlanned Brackets() {
    SPlanned planned;
    planned.m_Pieces = {{"left <bracket> & \"arm\"", BracketShape(), 3, {}, true}};
    planned.m_Drawn = {Bracket()};
    SFreePacking& packing = planned.m_Packing;
    packing.m_Strip.m_Width = 200.0;
    packing.m_Grid = GridFor(200.0);
    packing.m_Placed = {At(0.0, false, 5, 5, packing.m_Grid), At(90.0, true, 150, 70.5, packing.m_Grid),
                        At(33.0, false, 40, 60, packing.m_Grid)};
    packing.m_nHeight = packing.m_Grid.Count(140.25);
    return planned;
}

/// Stretches with arcs in the parts in which they are written.
std::vector<CStretch> InParts(const SPath& path) {
    std::vector<CStretch> parts;
    for (const CStretch& stretch : path.m_Stretches) {
        if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
            const std::vector<SArcTo> quarters = InQuarters(*pArc);
            parts.insert(parts.end(), quarters.begin(), quarters.end());
        } else {
            parts.push_back(stretch);
        }
    }
    return parts;
}

SPoint MiddleOf(const CStretch& stretch) {
    if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
        return PointAt(*pArc, pArc->m_From + pArc->m_Sweep / 2.0);
    }
    if (const auto* pCurve = std::get_if<SCurveTo>(&stretch)) {
        return pCurve->m_FirstControl + pCurve->m_SecondControl;
    }
    return EndOf(stretch);
}

void ExpectNear(SPoint found, SPoint expected) {
    EXPECT_NEAR(found.m_X, expected.m_X, 1e-6);
    EXPECT_NEAR(found.m_Y, expected.m_Y, 1e-6);
}

void ExpectSame(const SPath& found, const SPath& expected) {
    const std::vector<CStretch> parts = InParts(expected);
    ASSERT_EQ(found.m_Stretches.size(), parts.size()) << InShort(found);
    EXPECT_EQ(found.m_bClosed, expected.m_bClosed);
    ExpectNear(found.m_Start, expected.m_Start);
    for (size_t i = 0; i < parts.size(); ++i) {
        EXPECT_EQ(found.m_Stretches[i].index(), parts[i].index()) << InShort(found);
        ExpectNear(EndOf(found.m_Stretches[i]), EndOf(parts[i]));
        ExpectNear(MiddleOf(found.m_Stretches[i]), MiddleOf(parts[i]));
    }
}

TEST(SvgPlans, AreReadAsTheSameLinesAgain) {
    const SPlanned planned = Brackets();
    const SDrawing drawing = ReadSvgText(planned.Write());
    EXPECT_EQ(InShort(drawing.m_Findings), "");
    EXPECT_EQ(drawing.m_Unit, EUnit::MILLIMETRE);
    ASSERT_EQ(drawing.m_Paths.size(), 9U);
    for (size_t i = 0; i < 3; ++i) {
        const SMap map = MapOf(planned.m_Pieces[0].m_Shape, planned.m_Packing, planned.m_Packing.m_Placed[i]);
        ExpectSame(drawing.m_Paths[2 * i].m_Path, map(planned.m_Drawn[0].m_Outline));
        ExpectSame(drawing.m_Paths[2 * i + 1].m_Path, map(planned.m_Drawn[0].m_Holes[0]));
        ExpectSame(drawing.m_Paths[6 + i].m_Path, map(planned.m_Drawn[0].m_Marks[0]));
    }
}

TEST(SvgPlans, AreReadWithTheirNamesAndLayersAgain) {
    const SDrawing drawing = ReadSvgText(Brackets().Write());
    for (size_t i = 0; i < drawing.m_Paths.size(); ++i) {
        EXPECT_EQ(drawing.m_Paths[i].m_Name, "left <bracket> & \"arm\"");
        EXPECT_EQ(drawing.m_Paths[i].m_Layer, i < 6 ? "cut" : "marks");
    }
}

TEST(SvgPlans, AreReadWithTheirTextsButWithoutTheirLabelsAgain) {
    const SPlanned planned = Brackets();
    const SDrawing drawing = ReadSvgText(planned.Write());
    ASSERT_EQ(drawing.m_Texts.size(), 3U);
    for (size_t i = 0; i < 3; ++i) {
        const SMap map = MapOf(planned.m_Pieces[0].m_Shape, planned.m_Packing, planned.m_Packing.m_Placed[i]);
        const SDrawnText expected = map(planned.m_Drawn[0].m_Texts[0]);
        const SDrawnText& found = drawing.m_Texts[i];
        EXPECT_EQ(found.m_Text, "A & B");
        ExpectNear(found.m_At, expected.m_At);
        EXPECT_NEAR(found.m_Height, 4.0, 1e-6);
        EXPECT_NEAR(std::remainder(found.m_Degrees - expected.m_Degrees, 360.0), 0.0, 1e-9);
        EXPECT_EQ(found.m_bMirrored, expected.m_bMirrored);
    }
}

TEST(SvgPlans, TellTheSizeOfThePageInRealUnits) {
    SPlanned planned = Brackets();
    EXPECT_THAT(planned.Write(), HasSubstr("width=\"200mm\" height=\"140.25mm\" viewBox=\"0 0 200 140.25\""));
    planned.m_Unit = EUnit::INCH;
    EXPECT_THAT(planned.Write(),
                HasSubstr("width=\"5080mm\" height=\"3562.35mm\" viewBox=\"0 0 200 140.25\""));
    planned.m_Unit.reset();
    EXPECT_THAT(planned.Write(), HasSubstr("width=\"200\" height=\"140.25\" viewBox=\"0 0 200 140.25\""));
}

TEST(SvgPlans, TellOfEachPieceItsNameNumberAndTurn) {
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(Brackets().Write().c_str()));
    const pugi::xml_node cut = document.child("svg").find_child_by_attribute("g", "id", "cut");
    EXPECT_STREQ(cut.attribute("inkscape:groupmode").value(), "layer");
    const pugi::xml_node piece = cut.find_child_by_attribute("g", "id", "piece-2");
    EXPECT_STREQ(piece.attribute("inkscape:label").value(), "left <bracket> & \"arm\"");
    EXPECT_STREQ(piece.attribute("data-name").value(), "left <bracket> & \"arm\"");
    EXPECT_STREQ(piece.attribute("data-number").value(), "2");
    EXPECT_STREQ(piece.attribute("data-turn").value(), "90");
    EXPECT_STREQ(piece.attribute("data-mirrored").value(), "true");
    EXPECT_STREQ(piece.child_value("title"), "2: left <bracket> & \"arm\", mirrored, turned by 90 degrees");
    EXPECT_STREQ(cut.attribute("fill").value(), "none");
}

TEST(SvgPlans, HaveALayerForTheStripTheCutsTheMarksAndTheLabels) {
    const std::string text = Brackets().Write();
    size_t nAt = 0;
    for (char const* pName : {"strip", "cut", "marks", "labels"}) {
        nAt = text.find("inkscape:groupmode=\"layer\" inkscape:label=\"" + std::string(pName) + "\"", nAt);
        EXPECT_NE(nAt, std::string::npos) << pName;
    }
}

TEST(SvgPlans, HaveLabelsThatFitIntoTheirPieces) {
    SPlanned planned = Brackets();
    planned.m_Pieces[0].m_Name = "a name that is much too long for a piece so small";
    pugi::xml_document document;
    ASSERT_TRUE(document.load_string(planned.Write().c_str()));
    const pugi::xml_node labels = document.child("svg").find_child_by_attribute("g", "id", "labels");
    int nLabels = 0;
    for (const pugi::xml_node text : labels.children("text")) {
        const double width = static_cast<double>(std::string(text.child_value()).size()) * LETTER_WIDTH *
                             text.attribute("font-size").as_double();
        EXPECT_LT(width, 40.0);
        EXPECT_GT(width, 1.0);
        ++nLabels;
    }
    EXPECT_EQ(nLabels, 6);
}

TEST(SvgPlans, KeepRoundHolesAsArcsOfACircle) {
    EXPECT_EQ(support::CountOf(" A8,8 0 0 ", Brackets().Write()), 12);
}

TEST(SvgPlans, HaveNoDigitsThatOnlyRoundingMade) {
    SPlanned planned = Brackets();
    planned.m_Packing.m_Placed.resize(1);
    planned.m_Packing.m_Placed[0].m_At.m_nX = planned.m_Packing.m_Grid.Count(0.1);
    planned.m_Packing.m_Placed[0].m_At.m_nY = planned.m_Packing.m_Grid.Count(0.2);
    EXPECT_THAT(planned.Write(), HasSubstr("d=\"M0.1,140.05 L40.1,140.05 A20,20 0 0 0 60.1,120.05"));
}

TEST(SvgPlans, HoldNoCharacterThatXmlForbids) {
    SPlanned planned = Brackets();
    planned.m_Pieces[0].m_Name =
        "a\x01"
        "b\xFF"
        "c\xED\xA0\x80"
        "d";
    planned.m_Drawn[0].m_Texts[0].m_Text = "\x02 \xC3";
    const SDrawing drawing = ReadSvgText(planned.Write());
    EXPECT_EQ(drawing.m_Paths.at(0).m_Name.substr(0, 8),
              "a\xEF\xBF\xBD"
              "b\xEF\xBF\xBD");
    EXPECT_EQ(drawing.m_Texts.at(0).m_Text, "\xEF\xBF\xBD \xEF\xBF\xBD");
}

TEST(SvgPlans, AreTheSameBytesEachTimeAndUnderEachLocale) {
    const std::string text = Brackets().Write();
    EXPECT_EQ(Brackets().Write(), text);
    const support::CCommaLocale locale;
    EXPECT_EQ(Brackets().Write(), text);
    EXPECT_EQ(InShort(ReadSvgText(text)), InShort(ReadSvgText(Brackets().Write())));
}

TEST(SvgPlans, OfNothingAreAPageAllTheSame) {
    SPlanned planned;
    planned.m_Packing.m_Grid = GridFor(400.0);
    EXPECT_THAT(planned.Write(), HasSubstr("viewBox=\"0 0 400 400\""));
    EXPECT_THAT(planned.Write(), HasSubstr("<title>Packing of 0 pieces</title>"));
    EXPECT_EQ(InShort(ReadSvgText(planned.Write()).m_Findings), "");
}

}  // namespace

}  // namespace nestrix
