#include "formats/svg/SvgPathData.h"

#include <gtest/gtest.h>

#include "tests/formats/svg/InShort.h"

namespace nestrix {

namespace {

/// The paths in short; and how much was understood, where that is not all.
std::string Parsed(std::string_view text, size_t nMost = 100) {
    const SSvgPathData data = ParsePathData(text, nMost);
    std::string paths;
    for (const SPath& path : data.m_Paths) {
        paths.append(paths.empty() ? "" : " ").append(InShort(path));
    }
    return data.m_nUnderstood == text.size() ? paths : paths + " | " + std::to_string(data.m_nUnderstood);
}

TEST(PathData, HasLinesInBothKindsOfCoordinates) {
    EXPECT_EQ(Parsed("M1 2 L3 4 l1 1 H10 h-2 V0 v5"), "M1,2 L3,4 L4,5 L10,5 L8,5 L8,0 L8,5");
}

TEST(PathData, GoesOnWithLinesAfterAMove) {
    EXPECT_EQ(Parsed("M0 0 10 0 10 10Z"), "M0,0 L10,0 L10,10 Z");
    EXPECT_EQ(Parsed("m1 1 10 0 0 10z"), "M1,1 L11,1 L11,11 Z");
}

TEST(PathData, HasCubicCurvesAndTheirSmoothContinuation) {
    EXPECT_EQ(Parsed("M0 0C1 1 2 1 3 0S5 -1 6 0"), "M0,0 C1,1 2,1 3,0 C4,-1 5,-1 6,0");
    EXPECT_EQ(Parsed("M10 10c1 1 2 1 3 0s2 -1 3 0"), "M10,10 C11,11 12,11 13,10 C14,9 15,9 16,10");
}

TEST(PathData, TakesTheCurrentPointForTheControlOfASmoothCurveAfterAnythingElse) {
    EXPECT_EQ(Parsed("M0 0L3 0S5 -1 6 0"), "M0,0 L3,0 C3,0 5,-1 6,0");
    EXPECT_EQ(Parsed("M0 0Q3 3 6 0S8 1 9 0"), "M0,0 C2,2 4,2 6,0 C6,0 8,1 9,0");
    EXPECT_EQ(Parsed("M0 0L3 0T6 0"), "M0,0 L3,0 C3,0 4,0 6,0");
}

TEST(PathData, RaisesQuadraticCurvesToCubicOnes) {
    EXPECT_EQ(Parsed("M0 0Q3 3 6 0T12 0"), "M0,0 C2,2 4,2 6,0 C8,-2 10,-2 12,0");
    EXPECT_EQ(Parsed("M1 1q3 3 6 0t6 0"), "M1,1 C3,3 5,3 7,1 C9,-1 11,-1 13,1");
}

TEST(PathData, HasArcsThroughTheirCentres) {
    EXPECT_EQ(Parsed("M0 0A5 5 0 0 1 10 0"), "M0,0 A(5,0; 5,0; 0,5; 180, 180) 10,0");
    EXPECT_EQ(Parsed("M5 5a5 5 0 0 0 5 -5"), "M5,5 A(5,0; 5,0; 0,5; 90, -90) 10,0");
}

TEST(PathData, ReadsTheFlagsOfArcsWithoutSpaces) {
    EXPECT_EQ(Parsed("M0 0a5 5 0 0110 0"), Parsed("M0 0a5 5 0 0 1 10 0"));
    EXPECT_EQ(Parsed("M0 0a5,5,0,01-5-5"), Parsed("M0 0a5 5 0 0 1 -5 -5"));
}

TEST(PathData, DrawsNoArcBetweenEqualPointsAndALineWithoutARadius) {
    EXPECT_EQ(Parsed("M1 1A5 5 0 0 1 1 1L2 2"), "M1,1 L2,2");
    EXPECT_EQ(Parsed("M1 1A0 5 0 0 1 9 1"), "M1,1 L9,1");
}

TEST(PathData, ReadsNumbersWithoutSpaces) {
    EXPECT_EQ(Parsed("M.5.5-1-.5 1e1,1E-1+2 3"), "M0.5,0.5 L-1,-0.5 L10,0.1 L2,3");
}

TEST(PathData, BeginsAgainWhereTheClosedPathBegan) {
    EXPECT_EQ(Parsed("M1 1L5 1L5 5ZL0 0"), "M1,1 L5,1 L5,5 Z M1,1 L0,0");
    EXPECT_EQ(Parsed("M1 1L5 1L5 5Zm1 1l1 0"), "M1,1 L5,1 L5,5 Z M2,2 L3,2");
}

TEST(PathData, HasAPathForEachMoveThatDrawsAnything) {
    EXPECT_EQ(Parsed("M0 0M1 1L2 2M3 3ZM4 4"), "M1,1 L2,2");
    EXPECT_EQ(Parsed(""), "");
}

TEST(PathData, IsKeptAsFarAsItIsUnderstood) {
    EXPECT_EQ(Parsed("M0 0L1 1L2 x"), "M0,0 L1,1 | 8");
    EXPECT_EQ(Parsed("L1 1"), " | 0");
    EXPECT_EQ(Parsed("M0 0L1 1 nan 3"), "M0,0 L1,1 | 9");
}

TEST(PathData, KeepsNoMoreStretchesThanAllowed) {
    const SSvgPathData data = ParsePathData("M0 0h1h1h1h1", 3);
    EXPECT_TRUE(data.m_bTooMany);
    ASSERT_EQ(data.m_Paths.size(), 1U);
    EXPECT_EQ(data.m_Paths[0].m_Stretches.size(), 3U);
    EXPECT_FALSE(ParsePathData("M0 0h1h1h1", 3).m_bTooMany);
}

TEST(PathData, IsNotUnderstoodWhereNumbersAreWild) {
    EXPECT_NE(Parsed("M0 0L1 1e400").find('|'), std::string::npos);
    EXPECT_NE(Parsed("M0 0L1 1e2147483647").find('|'), std::string::npos);
    EXPECT_NE(Parsed("M0 0L1 1e-2147483648").find('|'), std::string::npos);
    EXPECT_NE(Parsed("M0 0L1 0." + std::string(800, '0') + "1").find('|'), std::string::npos);
    EXPECT_NE(Parsed("M0 0L1 " + std::string(800, '9')).find('|'), std::string::npos);
}

TEST(PathData, ReadsNumbersOfAllTheDigitsThatADoubleHas) {
    const SSvgPathData data = ParsePathData("M0.1 123.456L0.30000000000000004 12345678.9", 9);
    EXPECT_EQ(data.m_Paths[0].m_Start, (SPoint{0.1, 123.456}));
    const SPoint end = EndOf(data.m_Paths[0]);
    EXPECT_DOUBLE_EQ(end.m_X, 0.1 + 0.2);
    EXPECT_EQ(end.m_Y, 12345678.9);
}

}  // namespace

}  // namespace nestrix
