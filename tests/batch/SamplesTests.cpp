#include <gmock/gmock.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <set>
#include <sstream>

#include "formats/PolygonFile.h"
#include "ga/CContainer.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Chromosomes.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CStdoutCapture;
using support::CTemporaryFolder;
using support::ReadFile;

namespace fs = std::filesystem;

namespace {

const fs::path SAMPLES = NESTRIX_SAMPLES;

struct SSample {
    std::string m_Name;  ///< with its set
    CPolygon m_Polygon;
};

bool IsPolygonFile(const fs::path& path) {
    return path.extension() == ".pol";
}

std::vector<SSample> LoadSamples(const fs::path& folder) {
    std::vector<SSample> samples;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(folder)) {
        if (IsPolygonFile(entry.path())) {
            samples.push_back({entry.path().lexically_relative(SAMPLES), {}});
            EXPECT_TRUE(samples.back().m_Polygon.ReadPolygon(entry.path().c_str()));
        }
    }
    return samples;
}

/// Twice the area of the triangle, positive where it turns left.
double TurnOf(const mgVector3& a, const mgVector3& b, const mgVector3& c) {
    return (double{b.x} - a.x) * (double{c.y} - a.y) - (double{b.y} - a.y) * (double{c.x} - a.x);
}

double AreaOf(const CPolygon& polygon) {
    double area = 0.0;
    for (const CLine& line : polygon.m_Lines) {
        area += TurnOf({}, polygon.PositionOf(line.m_nStart), polygon.PositionOf(line.m_nEnd)) / 2.0;
    }
    return area;
}

double AreaOf(const std::vector<SSample>& samples) {
    double area = 0.0;
    for (const SSample& sample : samples) {
        area += AreaOf(sample.m_Polygon);
    }
    return area;
}

bool DoOverlap(float a, float b, float c, float d) {
    return std::max(a, b) >= std::min(c, d) && std::max(c, d) >= std::min(a, b);
}

/// Whether two edges meet; touching counts. Edges on one line need the overlap of their extents.
bool DoCross(const CPolygon& polygon, const CLine& one, const CLine& other) {
    const mgVector3& a = polygon.PositionOf(one.m_nStart);
    const mgVector3& b = polygon.PositionOf(one.m_nEnd);
    const mgVector3& c = polygon.PositionOf(other.m_nStart);
    const mgVector3& d = polygon.PositionOf(other.m_nEnd);
    return DoOverlap(a.x, b.x, c.x, d.x) && DoOverlap(a.y, b.y, c.y, d.y) &&
           TurnOf(a, b, c) * TurnOf(a, b, d) <= 0.0 && TurnOf(c, d, a) * TurnOf(c, d, b) <= 0.0;
}

bool CrossesItself(const CPolygon& polygon) {
    const size_t nLines = polygon.m_Lines.size();
    for (size_t i = 0; i < nLines; ++i) {
        for (size_t j = i + 2; j < nLines; ++j) {
            const bool bNeighbours = i == 0 && j == nLines - 1;
            if (!bNeighbours && DoCross(polygon, polygon.m_Lines[i], polygon.m_Lines[j])) {
                return true;
            }
        }
    }
    return false;
}

bool IsConvex(const CPolygon& polygon) {
    const int nPoints = static_cast<int>(polygon.m_Points.size());
    for (int i = 0; i < nPoints; ++i) {
        if (TurnOf(polygon.PositionOf(i), polygon.PositionOf((i + 1) % nPoints),
                   polygon.PositionOf((i + 2) % nPoints)) <= 0.0) {
            return false;
        }
    }
    return true;
}

/// The height of the best packing of a short search.
float SearchFor(const std::string& set) {
    CContainer container;
    std::vector<fs::path> files;
    for (const fs::directory_entry& entry : fs::directory_iterator(SAMPLES / set)) {
        if (IsPolygonFile(entry.path())) {
            files.push_back(entry.path());
        }
    }
    std::sort(files.begin(), files.end());
    for (const fs::path& file : files) {
        EXPECT_TRUE(container.AddPolygon(file.c_str()));
    }
    g_MutationProbability = 0.1F;
    support::CNobody sink;
    const CStdoutCapture capture;
    container.RunSearch(100, 60, 1, sink);
    return container.m_fTotalHeight - container.m_fBestFitness;
}

}  // namespace

TEST(Samples, AreSixSetsAndTheLargeOneHoldsAHundredPieces) {
    for (char const* const pSet : {"squares", "rectangles", "convex", "concave", "puzzle", "large"}) {
        EXPECT_GE(LoadSamples(SAMPLES / pSet).size(), 5U) << pSet;
    }
    EXPECT_GE(LoadSamples(SAMPLES / "large").size(), 100U);
}

TEST(Samples, AreSoundFiles) {
    for (const SSample& sample : LoadSamples(SAMPLES)) {
        EXPECT_EQ(ReadPolygonFile((SAMPLES / sample.m_Name).c_str()).m_Fault, "") << sample.m_Name;
    }
}

TEST(Samples, RunCounterClockwise) {
    for (const SSample& sample : LoadSamples(SAMPLES)) {
        EXPECT_GT(AreaOf(sample.m_Polygon), 0.0) << sample.m_Name;
    }
}

TEST(Samples, NeverCrossOrTouchThemselves) {
    for (const SSample& sample : LoadSamples(SAMPLES)) {
        EXPECT_FALSE(CrossesItself(sample.m_Polygon)) << sample.m_Name;
    }
}

TEST(Samples, HaveExactBoxes) {
    for (const SSample& sample : LoadSamples(SAMPLES)) {
        const CPolygon& polygon = sample.m_Polygon;
        mgVector3 min = polygon.PositionOf(0);
        mgVector3 max = min;
        for (const CPoint& point : polygon.m_Points) {
            min = {std::min(min.x, point.m_Position.x), std::min(min.y, point.m_Position.y), 0.0F};
            max = {std::max(max.x, point.m_Position.x), std::max(max.y, point.m_Position.y), 0.0F};
        }
        EXPECT_EQ(polygon.m_BoundingBoxMin, min) << sample.m_Name;
        EXPECT_EQ(polygon.m_BoundingBoxMax, max) << sample.m_Name;
    }
}

TEST(Samples, FitIntoTheStrip) {
    for (const SSample& sample : LoadSamples(SAMPLES)) {
        EXPECT_LE(sample.m_Polygon.m_BoundingBoxMax.x - sample.m_Polygon.m_BoundingBoxMin.x, 400.0F)
            << sample.m_Name;
    }
}

TEST(ConvexSamples, AreConvex) {
    for (const SSample& sample : LoadSamples(SAMPLES / "convex")) {
        EXPECT_TRUE(IsConvex(sample.m_Polygon)) << sample.m_Name;
    }
}

TEST(ConcaveSamples, AreNot) {
    for (const SSample& sample : LoadSamples(SAMPLES / "concave")) {
        EXPECT_FALSE(IsConvex(sample.m_Polygon)) << sample.m_Name;
    }
}

TEST(RectangleSamples, FillTheSheetTheyWereCutFrom) {
    EXPECT_EQ(AreaOf(LoadSamples(SAMPLES / "rectangles")), 400.0 * 240.0);
}

TEST(PuzzleSamples, FillTheSheetTheyWereCutFrom) {
    // The sheet's sides lean in by one unit at every other joint: half a unit on either side on average.
    EXPECT_NEAR(AreaOf(LoadSamples(SAMPLES / "puzzle")), 399.0 * 300.0, 0.5);
}

TEST(PuzzleSamples, DroppedAsCutMakeUpTheSheetAgain) {
    CContainer container;
    CChromosome asCut;
    std::ifstream lines(SAMPLES / "puzzle" / "as-cut.txt");
    std::vector<SGene> genes;
    std::string file;
    for (float fLeft = 0.0F; lines >> file >> fLeft;) {
        ASSERT_TRUE(container.AddPolygon((SAMPLES / "puzzle" / file).c_str()));
        const int nPiece = static_cast<int>(genes.size());
        genes.push_back({nPiece, nPiece, fLeft});
    }
    ASSERT_EQ(genes.size(), LoadSamples(SAMPLES / "puzzle").size());
    container.PrepareEverything(0);
    asCut.SetGeneCount(static_cast<int>(genes.size()));
    std::copy(genes.begin(), genes.end(), asCut.m_pGenes);
    std::vector<CPolygon> placed;
    const float fFitness = support::PlaceChromosome(container, asCut, placed, nullptr);
    EXPECT_NEAR(container.m_fTotalHeight - fFitness, 300.0F, 0.01F);
}

TEST(Samples, PackBelowTheTopOfTheCanvasAxisInAShortSearch) {
    for (char const* const pSet : {"squares", "rectangles", "convex", "concave", "puzzle"}) {
        EXPECT_LT(SearchFor(pSet), 600.0F) << pSet;
    }
}

TEST(SampleScript, MakesTheShippedFilesAgain) {
    const CTemporaryFolder folder;
    const std::string command =
        "python3 " + (SAMPLES / "make-samples.py").native() + " " + folder.Path().native();
    ASSERT_EQ(std::system(command.c_str()), 0);
    const auto contentOf = [](const fs::path& root) {
        std::set<std::pair<std::string, std::string>> content;
        for (const fs::directory_entry& entry : fs::recursive_directory_iterator(root)) {
            const fs::path extension = entry.path().extension();
            if (extension == ".pol" || extension == ".txt") {
                content.emplace(entry.path().lexically_relative(root), ReadFile(entry.path()));
            }
        }
        return content;
    };
    EXPECT_TRUE(contentOf(folder.Path()) == contentOf(SAMPLES));
}

}  // namespace nestrix
