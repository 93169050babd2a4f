#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <map>
#include <sstream>

#include "drawing/Flattening.h"
#include "drawing/SDrawnPiece.h"
#include "formats/svg/SvgDrawing.h"
#include "packing/PointVectors.h"
#include "tests/formats/svg/InShort.h"

// Drawings that Inkscape wrote, against what Inkscape itself measures: see samples/README.md.

namespace nestrix {

namespace {

constexpr double PIXEL = 25.4 / 96.0;

std::string SamplePath(const std::string& name) {
    return "samples/" + name;  // the tests run in this folder
}

/// Left, bottom, right, top.
struct SBox {
    double m_Left = 0.0;
    double m_Bottom = 0.0;
    double m_Right = 0.0;
    double m_Top = 0.0;
};

SBox BoxOf(const std::vector<SDrawnPath>& paths) {
    SPlaneBox box;
    for (const SDrawnPath& path : paths) {
        for (const SPoint point : Chords(path.m_Path, 1e-5)) {
            box.Include(point);
        }
    }
    return {box.m_Low.m_X, box.m_Low.m_Y, box.m_High.m_X, box.m_High.m_Y};
}

/// What Inkscape measures, by id, in units of the drawing; y up.
std::map<std::string, SBox> InkscapesBoxes(const std::string& sample, double scale, double height) {
    std::map<std::string, SBox> boxes;
    std::ifstream file(SamplePath(sample + ".boxes"));
    for (std::string line; std::getline(file, line);) {
        std::replace(line.begin(), line.end(), ',', ' ');
        std::istringstream row(line);
        std::string id;
        double x = 0.0;
        double y = 0.0;
        double across = 0.0;
        double down = 0.0;
        row >> id >> x >> y >> across >> down;
        boxes[id] = {x * scale, height - (y + down) * scale, (x + across) * scale, height - y * scale};
    }
    return boxes;
}

/// The drawing's paths, those of one element together: neighbours with the same name.
std::vector<std::vector<SDrawnPath>> ByElement(const SDrawing& drawing) {
    std::vector<std::vector<SDrawnPath>> elements;
    for (const SDrawnPath& path : drawing.m_Paths) {
        if (elements.empty() || elements.back().front().m_Name != path.m_Name) {
            elements.emplace_back();
        }
        elements.back().push_back(path);
    }
    return elements;
}

/// @param ids of the elements that are drawn, in their order.
void ExpectInkscapesBoxes(const std::string& sample, const std::vector<std::string>& ids, double scale,
                          double height) {
    const std::vector<std::vector<SDrawnPath>> elements = ByElement(ReadSvg(SamplePath(sample + ".svg")));
    std::map<std::string, SBox> expected = InkscapesBoxes(sample, scale, height);
    ASSERT_EQ(elements.size(), ids.size());
    for (size_t i = 0; i < ids.size(); ++i) {
        ASSERT_TRUE(expected.contains(ids[i])) << ids[i];
        const SBox found = BoxOf(elements[i]);
        EXPECT_NEAR(found.m_Left, expected[ids[i]].m_Left, 2e-3) << ids[i];
        EXPECT_NEAR(found.m_Bottom, expected[ids[i]].m_Bottom, 2e-3) << ids[i];
        EXPECT_NEAR(found.m_Right, expected[ids[i]].m_Right, 2e-3) << ids[i];
        EXPECT_NEAR(found.m_Top, expected[ids[i]].m_Top, 2e-3) << ids[i];
    }
}

TEST(InkscapeSamples, OfPlatesLieWhereInkscapeSeesThem) {
    ExpectInkscapesBoxes("plates", {"plate", "cam", "wing", "star", "bore", "pie", "use19"}, PIXEL, 148.0);
}

TEST(InkscapeSamples, OfPlatesAreNamedAndInTheirLayer) {
    const SDrawing drawing = ReadSvg(SamplePath("plates.svg"));
    EXPECT_EQ(InShort(drawing.m_Findings), "");
    EXPECT_EQ(drawing.m_Unit, EUnit::MILLIMETRE);
    std::string names;
    for (const SDrawnPath& path : drawing.m_Paths) {
        names.append(path.m_Name).append(" ");
        EXPECT_EQ(path.m_Layer, "plates");
        EXPECT_TRUE(path.m_Path.m_bClosed);
    }
    EXPECT_EQ(names, "plate cam wing star bore pie star ");
}

TEST(InkscapeSamples, OfPlatesHaveArcsForRoundThings) {
    for (const SDrawnPath& path : ReadSvg(SamplePath("plates.svg")).m_Paths) {
        const auto& stretches = path.m_Path.m_Stretches;
        const auto nArcs = std::count_if(stretches.begin(), stretches.end(), [](const CStretch& stretch) {
            return std::holds_alternative<SArcTo>(stretch);
        });
        const std::map<std::string, int> expected{{"cam", 1}, {"bore", 1}, {"wing", 1}, {"pie", 3}};
        EXPECT_EQ(nArcs, expected.contains(path.m_Name) ? expected.at(path.m_Name) : 0) << path.m_Name;
    }
}

TEST(InkscapeSamples, OfLettersLieWhereInkscapeSeesThem) {
    ExpectInkscapesBoxes("letters", {"path11", "path13", "path15", "path17"}, 1.0, 120.0);
}

TEST(InkscapeSamples, OfLettersHaveTheirHolesAndATextNearItsPlace) {
    const SDrawing drawing = ReadSvg(SamplePath("letters.svg"));
    EXPECT_FALSE(drawing.m_Unit);
    EXPECT_EQ(
        InShort(drawing.m_Findings),
        "2 note: the file names no unit of length, only user units, of which the page measures 300 by 120");
    std::vector<size_t> holes;
    for (const SDrawnPiece& piece : FindPieces(drawing, "letters.svg", {}).m_Pieces) {
        holes.push_back(piece.m_Holes.size());
    }
    EXPECT_EQ(holes, (std::vector<size_t>{2, 1, 1, 2}));
    ASSERT_EQ(drawing.m_Texts.size(), 1U);
    EXPECT_EQ(drawing.m_Texts[0].m_Text, "cut here");
    const SBox box = InkscapesBoxes("letters", 1.0, 120.0).at("note");
    EXPECT_NEAR(drawing.m_Texts[0].m_At.m_X, box.m_Left, 4.0);  // its width is estimated
    EXPECT_NEAR(drawing.m_Texts[0].m_At.m_Y, 10.0, 1e-9);
    EXPECT_NEAR(drawing.m_Texts[0].m_Height, 5.6, 1e-9);
}

TEST(InkscapeSamples, OfAnImportedPdfFileLieWhereInkscapeSeesThem) {
    ExpectInkscapesBoxes("imported", {"path2", "path4", "path6", "path8", "path10", "path12", "path14"},
                         PIXEL, 419.527559 / 72.0 * 25.4);
}

TEST(InkscapeSamples, OfAnImportedPdfFileAreThePlates) {
    const SDrawing plates = ReadSvg(SamplePath("plates.svg"));
    const SDrawing imported = ReadSvg(SamplePath("imported.svg"));
    EXPECT_EQ(imported.m_Unit, EUnit::MILLIMETRE);
    ASSERT_EQ(imported.m_Paths.size(), plates.m_Paths.size());
    for (size_t i = 0; i < plates.m_Paths.size(); ++i) {
        const SBox box = BoxOf({plates.m_Paths[i]});
        const SBox same = BoxOf({imported.m_Paths[i]});
        EXPECT_NEAR(same.m_Left, box.m_Left, 0.02);
        EXPECT_NEAR(same.m_Bottom, box.m_Bottom, 0.02);
        EXPECT_NEAR(same.m_Right, box.m_Right, 0.02);
        EXPECT_NEAR(same.m_Top, box.m_Top, 0.02);
    }
}

}  // namespace

}  // namespace nestrix
