#include <gtest/gtest.h>

#include <cstdio>
#include <sstream>

#include "batch/InputPaths.h"
#include "geom/Geom.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::ReadFile;

namespace {

/// One line of the table in the samples' README.
struct SRow {
    std::string m_Set;
    std::string m_Pieces;
    std::string m_Stacked;
    std::string m_Area;
    std::string m_Found;
};

std::vector<std::string> CellsOf(const std::string& line) {
    std::vector<std::string> cells;
    std::istringstream stream(line.substr(1));
    for (std::string cell; std::getline(stream, cell, '|');) {
        const size_t nFirst = cell.find_first_not_of(' ');
        cells.push_back(cell.substr(nFirst, cell.find_last_not_of(' ') - nFirst + 1));
    }
    return cells;
}

/// Without content if the table lacks the set.
SRow ReadRow(const std::string& set) {
    std::istringstream lines(ReadFile(NESTRIX_SAMPLES "/README.md"));
    for (std::string line; std::getline(lines, line);) {
        if (line.starts_with("| " + set + " |")) {
            const std::vector<std::string> cells = CellsOf(line);
            return {cells.at(0), cells.at(2), cells.at(3), cells.at(4), cells.at(6)};
        }
    }
    return {};
}

std::string Rounded(double value, int nDecimals) {
    char text[64];
    std::snprintf(text, sizeof text, "%.*f", nDecimals, value);
    return text;
}

class SampleTable : public testing::TestWithParam<std::string> {};

}  // namespace

TEST_P(SampleTable, StatesTheSetsFigures) {
    const SRow row = ReadRow(GetParam());
    const std::vector<std::string> folder{NESTRIX_SAMPLES "/" + GetParam()};
    const std::vector<SInputPath> files = FindInputs(folder).m_Files;
    double stacked = 0.0;
    double area = 0.0;
    for (const SInputPath& file : files) {
        CPolygon polygon;
        ASSERT_TRUE(polygon.ReadPolygon(file.m_File.c_str()));
        stacked += double{polygon.m_BoundingBoxMax.y} - polygon.m_BoundingBoxMin.y;
        for (const CLine& line : polygon.m_Lines) {
            const mgVector3& start = polygon.PositionOf(line.m_nStart);
            const mgVector3& end = polygon.PositionOf(line.m_nEnd);
            area += (double{start.x} * end.y - double{end.x} * start.y) / 2.0;
        }
    }
    EXPECT_EQ(row.m_Pieces, std::to_string(files.size()));
    EXPECT_EQ(row.m_Stacked, Rounded(stacked, 1));
    EXPECT_EQ(row.m_Area, Rounded(area, 1));
}

TEST_P(SampleTable, StatesTheHeightThatTheCommandFinds) {
    const SBatchResult result = RunBatchProgram(NESTRIX_SAMPLES "/" + GetParam() + " --method drop --seed 1");
    ASSERT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(ReadRow(GetParam()).m_Found, Rounded(std::stod(result.ValueOf("Best height: ")), 2));
}

INSTANTIATE_TEST_SUITE_P(Sets, SampleTable,
                         testing::Values("squares", "rectangles", "convex", "concave", "puzzle", "large"),
                         [](const auto& set) { return set.param; });

}  // namespace nestrix
