#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <fstream>
#include <ostream>
#include <sstream>

#include "drawing/SDrawnPiece.h"
#include "formats/dxf/DxfDrawing.h"
#include "packing/PointVectors.h"
#include "tests/formats/dxf/DxfTexts.h"

namespace nestrix {

// Drawings of a real writer, held against what that writer's own reader makes of them.

namespace {

const std::filesystem::path SAMPLES = "samples";  // tests run in the folder that they are in

/// Both sides are flattened to a hundredth, and written with four decimals.
constexpr double TOLERANCE = 0.03;

using CLines = std::vector<std::vector<SPoint>>;

CLines ReadOutlines(const std::filesystem::path& path) {
    CLines lines;
    std::ifstream file(path);
    for (std::string line; std::getline(file, line);) {
        auto& points = lines.emplace_back();
        std::istringstream text(line);
        char comma = 0;
        for (SPoint point; text >> point.m_X >> comma >> point.m_Y;) {
            points.push_back(point);
        }
    }
    return lines;
}

CLines LinesOf(const SDrawing& drawing) {
    CLines lines;
    for (const SDrawnPath& drawn : drawing.m_Paths) {
        const int nStretches = static_cast<int>(drawn.m_Path.m_Stretches.size());
        lines.push_back(support::PointsOn(drawn.m_Path, 8 + 256 / nStretches));
    }
    return lines;
}

double DistanceTo(SPoint point, const CLines& lines) {
    double nearest = HUGE_VAL;
    for (const auto& line : lines) {
        for (size_t i = 0; i + 1 < line.size() && nearest > 0.0; ++i) {
            nearest = std::min(nearest, DistanceOf(point, line[i], line[i + 1]));
        }
    }
    return nearest;
}

/// How far any point of one is from the lines of the other.
double FarthestOf(const CLines& lines, const CLines& others) {
    double farthest = 0.0;
    for (const auto& line : lines) {
        for (const SPoint& point : line) {
            farthest = std::max(farthest, DistanceTo(point, others));
        }
    }
    return farthest;
}

class Sample : public testing::TestWithParam<const char*> {};

TEST_P(Sample, ShowsWhatItsWriterSaysThatItShows) {
    const SDrawing drawing = ReadDxf(SAMPLES / (std::string(GetParam()) + ".dxf"));
    const CLines expected = ReadOutlines(SAMPLES / (std::string(GetParam()) + ".outlines"));
    const CLines shown = LinesOf(drawing);
    EXPECT_TRUE(drawing.m_Findings.empty()) << InWords(drawing.m_Findings[0]);
    ASSERT_FALSE(expected.empty());
    EXPECT_LE(FarthestOf(expected, shown), TOLERANCE);
    EXPECT_LE(FarthestOf(shown, expected), TOLERANCE);
}

INSTANTIATE_TEST_SUITE_P(All, Sample,
                         testing::Values("lines-and-arcs", "polylines", "ellipses", "splines", "fit-points",
                                         "blocks", "upside-down", "old", "holes-and-arcs"),
                         [](const auto& test) {
                             std::string name = test.param;
                             std::erase(name, '-');
                             return name;
                         });

/// The pieces of a drawing, by the number of stretches of their outlines, with the number of their holes.
std::vector<std::pair<size_t, size_t>> PiecesOf(const char* pName) {
    const SDrawing drawing = ReadDxf(SAMPLES / pName);
    EXPECT_TRUE(drawing.m_Findings.empty());
    std::vector<std::pair<size_t, size_t>> pieces;
    for (const SDrawnPiece& piece : FindPieces(drawing, pName, {}).m_Pieces) {
        pieces.emplace_back(piece.m_Outline.m_Stretches.size(), piece.m_Holes.size());
    }
    return pieces;
}

TEST(DrawingOfInkscape, HasItsPiecesWithTheirHoles) {
    using testing::Pair;
    EXPECT_THAT(PiecesOf("inkscape-r14.dxf"),
                testing::UnorderedElementsAre(Pair(4U, 1U), Pair(4U, 0U), Pair(3U, 0U), Pair(6U, 0U)));
    EXPECT_THAT(PiecesOf("inkscape-r12.dxf"), testing::UnorderedElementsAre(Pair(19U, 0U), Pair(3U, 0U)));
}

}  // namespace

}  // namespace nestrix
