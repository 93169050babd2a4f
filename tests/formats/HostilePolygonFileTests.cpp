#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <ostream>

#include "formats/PolygonFile.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Pieces.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// Files that no honest program writes: each is named for its fault and has one outcome.

namespace {

using support::CTemporaryFolder;

struct SFaultyFile {
    std::string m_Name;
    std::string m_Content;
    size_t m_nVertices;       ///< how many the reader takes
    std::string m_Complaint;  ///< what a program that refuses unsound files says; empty: sound
};

void PrintTo(const SFaultyFile& file, std::ostream* pStream) {
    *pStream << file.m_Name;
}

constexpr const char* FEW = "it has fewer than three vertices";
constexpr const char* NO_COUNT = "it does not begin with the number of vertices";
constexpr const char* TOO_MANY = "the number of vertices is too large";
constexpr const char* ENDLESS_BOX = "the bounding box is not finite";

std::string NotAPair(int nVertex, const std::string& count) {
    return "vertex " + std::to_string(nVertex) + " of " + count + " is not a pair \"x,y\"";
}

std::string OtherNumber(const std::string& announced, const std::string& found) {
    return "the count says " + announced + " vertices, but there " + found;
}

std::string NoComma(int nVertex) {
    return "no comma stands right behind the first number of vertex " + std::to_string(nVertex);
}

const std::vector<SFaultyFile> FAULTY_FILES = {
    {"Empty", "", 0, NO_COUNT},
    {"NothingButBlanks", " \n\t\r\n", 0, NO_COUNT},
    {"NotText", std::string("\0\xff\x80\n4", 5), 0, NO_COUNT},
    {"NoCount", ";20,20 0,0", 0, NO_COUNT},
    {"ByteOrderMark",
     "\xEF\xBB\xBF"
     "3 0,0 9,0 9,9 ;9,9 0,0",
     0, NO_COUNT},
    {"CountOfTwoToThe31InTenBytes", "2147483647", 0, OtherNumber("2147483647", "are none")},
    {"CountOfTwoToThe31WithThreeVertices", "2147483647 1,2 3,4 5,6 ;5,6 1,2", 3,
     OtherNumber("2147483647", "are 3")},
    {"CountOfAnotherOneAndTwoToThe32", "4294967299 1,2 3,4 5,6 ;5,6 1,2", 0, TOO_MANY},
    {"CountOfTwoToThe31", "2147483648 1,2 3,4 5,6 ;5,6 1,2", 0, TOO_MANY},
    {"CountBeyondAnyInteger", "99999999999999999999999 1,2 3,4 5,6 ;5,6 1,2", 0, TOO_MANY},
    {"CountOneAboveTheFilesBytes", "12 1,2 3,4", 2, OtherNumber("12", "are 2")},
    {"CountLargerThanThePairs", "4 1,2 3,4 5,6 ;5,6 1,2", 4, OtherNumber("4", "are 3")},
    {"CountOfThreeBelowTheIntegers", "-4294967293 1,2 3,4 5,6 ;5,6 1,2", 0, FEW},
    {"CountInAnotherBase", "0x3 1,2 3,4 5,6 ;5,6 1,2", 0, FEW},
    {"NegativeCount", "-3 1,2 3,4 5,6 ;5,6 1,2", 0, FEW},
    {"CountWithAFraction", "3.5 1,2 3,4 5,6 ;5,6 1,2", 3, NoComma(1)},
    {"NoVertex", "0 ;5,6 1,2", 0, FEW},
    {"OneVertex", "1 1,2 ;1,2 1,2", 1, FEW},
    {"TwoVertices", "2 1,2 3,4 ;3,4 1,2", 2, FEW},
    {"BlankBeforeAComma", "3 1 ,2 3,4 5,6 ;5,6 1,2", 3, NoComma(1)},
    {"SemicolonInsteadOfComma", "3 1,2 3;4 5,6 ;5,6 1,2", 3, NoComma(2)},
    {"LetterInANumber", "3 1,2 3,x 5,6 ;5,6 1,2", 3, NotAPair(2, "3")},
    {"NotANumber", "3 nan,2 3,4 5,6 ;5,6 1,2", 3, "vertex 1 is not finite"},
    {"Infinity", "3 1,2 3,inf 5,6 ;5,6 1,2", 3, "vertex 2 is not finite"},
    {"BeyondSinglePrecision", "3 1,2 3,4 1e39,6 ;5,6 1,2", 3, "vertex 3 is not finite"},
    {"NoBox", "3 1,2 3,4 5,6", 3, "the semicolon and the bounding box are missing"},
    {"NoSemicolon", "3 1,2 3,4 5,6 5,6 1,2", 3, "no semicolon stands before the bounding box"},
    {"OneCornerOnly", "3 1,2 3,4 5,6 ;5,6", 3, "the bounding box is not two corners \"x,y\""},
    {"MoreVerticesThanCounted", "3 1,2 3,4 5,6 7,8 ;7,8 1,2", 3, OtherNumber("3", "are 4")},
    {"InfiniteBox", "3 1,2 3,4 5,6 ;inf,6 1,2", 3, ENDLESS_BOX},
    {"BoxThatIsNotANumber", "3 1,2 3,4 5,6 ;5,6 1,nan", 3, ENDLESS_BOX},
    {"BoxBeyondSinglePrecision", "3 1,2 3,4 5,6 ;5,1e39 1,2", 3, ENDLESS_BOX},
    {"LowerLeftCornerFirst", "3 1,2 3,4 5,6 ;1,2 5,6", 3,
     "the bounding box does not name its upper-right corner first"},
    {"UpperLeftCornerFirst", "3 1,2 3,4 5,6 ;1,6 5,2", 3,
     "the bounding box does not name its upper-right corner first"},
    {"LowerRightCornerFirst", "3 1,2 3,4 5,6 ;5,2 1,6", 3,
     "the bounding box does not name its upper-right corner first"},
    {"SelfCrossing", "4 0,0 9,9 9,0 0,9 ;9,9 0,0", 4, ""},
    {"RepeatedVertices", "6 0,0 0,0 9,0 9,0 9,9 9,9 ;9,9 0,0", 6, ""},
    {"AllVerticesTheSame", "3 5,5 5,5 5,5 ;5,5 5,5", 3, ""},
    {"Clockwise", "4 0,0 0,9 9,9 9,0 ;9,9 0,0", 4, ""},
    {"VerticesOnOneLine", "3 0,0 5,0 9,0 ;9,0 0,0", 3, ""},
    {"BoxThatEnclosesNothing", "3 1,2 3,4 5,6 ;-1,-1 -2,-2", 3, ""},
    {"LineEndsOfAnotherSystem", "3\r\n1,2\r\n3,4\r\n5,6\r\n;5,6\r\n1,2\r\n", 3, ""},
};

class FaultyFile : public testing::TestWithParam<SFaultyFile> {};

TEST_P(FaultyFile, IsReadAsFarAsItGoesAndAnalysed) {
    const CTemporaryFolder folder;
    CPolygon polygon;
    EXPECT_TRUE(polygon.ReadPolygon(folder.Write("faulty.pol", GetParam().m_Content).c_str()));
    EXPECT_EQ(polygon.m_Points.size(), GetParam().m_nVertices);
    EXPECT_EQ(polygon.m_Lines.size(), GetParam().m_nVertices);
}

TEST_P(FaultyFile, IsRefusedWithAReasonOrFoundSound) {
    const CTemporaryFolder folder;
    EXPECT_EQ(ReadPolygonFile(folder.Write("faulty.pol", GetParam().m_Content).c_str()).m_Fault,
              GetParam().m_Complaint);
}

INSTANTIATE_TEST_SUITE_P(All, FaultyFile, testing::ValuesIn(FAULTY_FILES),
                         [](const auto& test) { return test.param.m_Name; });

TEST(VertexThatIsNoPair, EndsTheVerticesEvenIfTheRestCouldBeRead) {
    const CTemporaryFolder folder;
    CPolygon polygon;
    ASSERT_TRUE(polygon.ReadPolygon(folder.Write("n.pol", "4 1,2 3,- 5,6 7,8 ;9,9 0,0").c_str()));
    ASSERT_EQ(polygon.m_Points.size(), 4U);
    EXPECT_EQ(polygon.PositionOf(0), (mgVector3{1, 2, 0}));
    EXPECT_EQ(polygon.PositionOf(1), (mgVector3{3, 0, 0}));
    EXPECT_EQ(polygon.PositionOf(2), mgVector3());
    EXPECT_EQ(polygon.PositionOf(3), mgVector3());
    EXPECT_EQ(polygon.m_BoundingBoxMax, mgVector3());
}

TEST(CountBeyondTheVertices, IsBelievedAsFarAsTheTextIsLongEnough) {
    const CTemporaryFolder folder;
    const auto countOf = [&folder](const std::string& text) {
        CPolygon polygon;
        EXPECT_TRUE(polygon.ReadPolygon(folder.Write("n.pol", text).c_str()));
        EXPECT_EQ(polygon.m_BoundingBoxMax, (mgVector3{5, 6, 0})) << "the box was lost";
        return polygon.m_Points.size();
    };
    const std::string pairs = " 1,2 3,4 5,6 ;5,6 1,2 ";  // with the count, 23 bytes
    EXPECT_EQ(countOf("5" + pairs), 5U);
    EXPECT_EQ(countOf("6" + pairs), 3U);
    EXPECT_EQ(countOf("6" + pairs + " "), 6U);
    EXPECT_EQ(countOf("6" + pairs + std::string(9, '\0')), 3U) << "a zero byte is no text";
    EXPECT_EQ(countOf("4 1,2 3,4 5,6;5,6 1,2 "), 4U) << "the last number counts twice";
    const std::string comment(100'000, '-');
    EXPECT_EQ(countOf("20000" + pairs + comment), 20'000U);
    EXPECT_EQ(countOf("20000" + pairs + std::string(1, '\0') + comment), 3U);
}

/// What is said of a text, and of which line.
std::string FaultOf(const std::string& text) {
    const CTemporaryFolder folder;
    const SPolygonFile file = ReadPolygonFile(folder.Write("n.pol", text).c_str());
    return std::to_string(file.m_nFaultLine) + ": " + file.m_Fault;
}

TEST(Fault, IsFoundInItsLine) {
    EXPECT_EQ(FaultOf("\n\nfour\n"), std::string("3: ") + NO_COUNT);
    EXPECT_EQ(FaultOf("\n2\n1,2\n3,4\n;3,4\n1,2"), std::string("2: ") + FEW);
    EXPECT_EQ(FaultOf("3\n1,2\n\n3;4\n5,6\n;5,6\n1,2"), "4: " + NoComma(2));
    EXPECT_EQ(FaultOf("3 1,2\n3,4\nx,6\n;5,6\n1,2"), "3: " + NotAPair(3, "3"));
    EXPECT_EQ(FaultOf("4\n1,2\n3,4\n5,6\n;5,6\n1,2"), "5: " + OtherNumber("4", "are 3"));
    EXPECT_EQ(FaultOf("3\n1,2\n3,inf\n\n5,6\n;5,6\n1,2"), "3: vertex 2 is not finite");
    EXPECT_EQ(FaultOf("3\n1,2\n3,4\n5,6\n7,8\n;5,6\n1,2"), "5: " + OtherNumber("3", "are 4"));
    EXPECT_EQ(FaultOf("3\n1,2\n3,4\n5,6\n\n;5,6\n1,nan"), std::string("6: ") + ENDLESS_BOX);
}

TEST(SoundFile, SaysInWhichLinesItsPartsAre) {
    const CTemporaryFolder folder;
    const auto linesOf = [&folder](const std::string& text) {
        const SPolygonFile file = ReadPolygonFile(folder.Write("n.pol", text).c_str());
        EXPECT_EQ(file.m_Fault, "");
        EXPECT_EQ(file.m_nFaultLine, 0);
        return std::vector<int>{file.m_nOutlineLine, file.m_nBoxLine, file.m_nRestLine};
    };
    EXPECT_EQ(linesOf("3\n1,2\n3,4\n5,6\n;5,6\n1,2\n"), (std::vector<int>{2, 5, 0}));
    EXPECT_EQ(linesOf("3 1,2 3,4 5,6 ;5,6 1,2"), (std::vector<int>{1, 1, 0}));
    EXPECT_EQ(linesOf("\n3\n\n1,2 3,4\n5,6\n\n;5,6\n1,2\n\n \n3\n"), (std::vector<int>{4, 7, 11}));
    EXPECT_EQ(linesOf("3 1,2 3,4 5,6 ;5,6 1,2x"), (std::vector<int>{1, 1, 1}));
}

TEST(SoundFile, IsTheSameForThoseWhoWouldRefuseAnUnsoundOne) {
    const CTemporaryFolder folder;
    support::CSeededRandom random(19);
    const CPolygon star = support::MakePiece(random, support::EPiece::Star);
    const std::string path = folder.Write("star.pol", support::PolygonFileText(star));
    std::string printed =
        support::PrintedBy([&] { EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Polygon, star); });
    EXPECT_EQ(printed, "");
}

TEST(UnsoundNumber, IsTakenAsItStands) {
    const CTemporaryFolder folder;
    CPolygon polygon;
    ASSERT_TRUE(
        polygon.ReadPolygon(folder.Write("n.pol", "3 nan,inf -inf,1e39 1e-50,-1e39 ;1,1 0,0").c_str()));
    EXPECT_TRUE(std::isnan(polygon.PositionOf(0).x));
    EXPECT_EQ(polygon.PositionOf(0).y, HUGE_VALF);
    EXPECT_EQ(polygon.PositionOf(1).x, -HUGE_VALF);
    EXPECT_EQ(polygon.PositionOf(1).y, HUGE_VALF);
    EXPECT_EQ(polygon.PositionOf(2).x, 0.0F);
    EXPECT_EQ(polygon.PositionOf(2).y, -HUGE_VALF);
}

TEST(SoundFile, HasNoFaultUnderADecimalComma) {
    const CTemporaryFolder folder;
    const std::string path = folder.Write("half.pol", "3 0.5,0 9.5,0 9.5,9 ;9.5,9 0.5,0");
    const support::CCommaLocale locale;
    EXPECT_EQ(ReadPolygonFile(path.c_str()).m_Fault, "");
}

TEST(OutlineOfAHundredThousandVertices, IsReadAndAnalysedInTime) {
    support::CSeededRandom random(18);
    const CTemporaryFolder folder;
    support::Outline outline = support::CombOutline(random, 100'000, 300, 300);
    const std::string path = folder.Write(
        "large.pol", support::PolygonFileText(support::MakeRawPolygon(outline, {}, {300, 300, 0})));
    CPolygon polygon;
    ASSERT_TRUE(polygon.ReadPolygon(path.c_str()));
    EXPECT_EQ(polygon.m_Points.size(), 100'000U);
    EXPECT_FALSE(polygon.m_FrontPoints.empty());
}

}  // namespace

}  // namespace nestrix
