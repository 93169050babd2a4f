#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <locale>
#include <ostream>
#include <regex>

#include "tests/formats/dxf/DxfTexts.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CTemporaryFolder.h"

namespace nestrix {

// Files that no honest program writes: each is named for its fault and ends in a message.

namespace {

using support::DxfFile;
using support::DxfGroups;
using support::FindingsOf;
using support::ReadEntities;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr const char* CUT_OFF = "the file is cut off: its end mark is missing";

struct SHostileFile {
    std::string m_Name;
    std::string m_Text;
    std::string m_Finding;  ///< the first one, with its line
    size_t m_nPaths = 0;    ///< that are read all the same
};

void PrintTo(const SHostileFile& file, std::ostream* pStream) {
    *pStream << file.m_Name;
}

std::string Repeated(const std::string& text, int nTimes) {
    std::string all;
    for (int i = 0; i < nTimes; ++i) {
        all += text;
    }
    return all;
}

const std::string LINE = "0 LINE 10 0 20 0 11 1 21 1 ";
const std::string CIRCLE_WITH = "0 CIRCLE 10 0 20 0 40 ";

const std::vector<SHostileFile> HOSTILE_FILES = {
    {"Empty", "", "0: this is no DXF file: it has no sections"},
    {"NothingButBlanks", "\n \n\t\n", "1: this is no DXF file: it has no sections"},
    {"Binary", "AutoCAD Binary DXF\r\n\x1a", "0: binary DXF is not read: save it as text (ASCII)"},
    {"NotText", std::string("\0\xff\x80\n4\n", 6), "1: \"???\" is no group code of a DXF file"},
    {"AnotherFormat", "<svg>\n</svg>\n", "1: \"<svg>\" is no group code of a DXF file"},
    {"AFractionForACode", "0\nSECTION\n0.5\nENDSEC\n", "3: \"0.5\" is no group code of a DXF file"},
    {"ACodeBeyondAnyNumber", "99999999999999999999\nSECTION\n",
     "1: \"99999999999999999999\" is no group code of a DXF file"},
    {"OnlyTheEndMark", DxfGroups("0 EOF"), "2: this is no DXF file: it has no sections"},
    {"CutOffInASection", DxfGroups("0 SECTION 2 ENTITIES " + LINE), std::string("14: ") + CUT_OFF, 1},
    {"CutOffInAGroup", DxfGroups("0 SECTION 2 ENTITIES " + LINE + "0"), std::string("15: ") + CUT_OFF, 1},
    {"NotANumber", DxfFile(CIRCLE_WITH + "nan " + LINE), "24: \"nan\" is no finite number", 1},
    {"Infinite", DxfFile(CIRCLE_WITH + "inf " + LINE), "24: \"inf\" is no finite number", 1},
    {"BeyondDoublePrecision", DxfFile(CIRCLE_WITH + "1e999 " + LINE), "24: \"1e999\" is no finite number", 1},
    {"Letters", DxfFile(CIRCLE_WITH + "12abc " + LINE), "24: \"12abc\" is no finite number", 1},
    {"Hexadecimal", DxfFile(CIRCLE_WITH + "0x10 " + LINE), "24: \"0x10\" is no finite number", 1},
    {"DecimalComma", DxfFile(CIRCLE_WITH + "12,5 " + LINE), "24: \"12,5\" is no finite number", 1},
    {"TooLarge", DxfFile(CIRCLE_WITH + "1e16 " + LINE), "24: \"1e16\" is too large", 1},
    {"TooLargeByItsScale",
     DxfFile("0 INSERT 2 A 10 0 20 0 41 1e15 42 1e15 " + LINE,
             "0 BLOCK 2 A 10 0 20 0 " + CIRCLE_WITH + "9 0 ENDBLK"),
     "20: what is drawn here is too large", 1},
    {"WholeNumberBeyondAnyInteger", DxfFile("0 LWPOLYLINE 70 99999999999 10 0 20 0 10 1 20 1 " + LINE),
     "20: \"99999999999\" is no whole number", 1},
    {"OverlongNumber", DxfFile(CIRCLE_WITH + std::string(5000, '1') + " " + LINE),
     "24: the line is longer than 1000 characters", 1},
    {"OverlongText", DxfFile("0 TEXT 10 0 20 0 40 1 1 " + std::string(100'000, 'x') + " " + LINE),
     "26: the line is longer than 1000 characters", 1},
    {"OverlongLayer", DxfFile("0 CIRCLE 8 " + std::string(5000, 'x') + " 10 0 20 0 40 1 " + LINE),
     "20: the line is longer than 1000 characters", 1},
    {"BlockThatNeverEnds", DxfGroups("0 SECTION 2 BLOCKS 0 BLOCK 2 A 10 0 20 0 " + LINE),
     std::string("22: ") + CUT_OFF},
    {"NoNameForABlock", DxfFile("0 INSERT 10 0 20 0 " + LINE, "0 BLOCK 10 0 20 0 " + LINE + "0 ENDBLK"), "",
     1},
    {"HighDegree", DxfFile("0 SPLINE 71 2000000000 10 0 20 0 10 1 20 1 40 0 " + LINE),
     "18: the degree of a spline is 16, not from 1 to 15", 1},
    {"NegativeDegree", DxfFile("0 SPLINE 71 -1 10 0 20 0 10 1 20 1 40 0 " + LINE),
     "18: the degree of a spline is 16, not from 1 to 15", 1},
};

class HostileFile : public testing::TestWithParam<SHostileFile> {};

TEST_P(HostileFile, EndsInAMessageAndGivesTheRest) {
    const SDrawing drawing = ReadDxfText(GetParam().m_Text, "test.dxf");
    const auto findings = FindingsOf(drawing);
    EXPECT_EQ(findings.empty() ? "" : findings[0], GetParam().m_Finding);
    EXPECT_EQ(drawing.m_Paths.size(), GetParam().m_nPaths);
}

INSTANTIATE_TEST_SUITE_P(All, HostileFile, testing::ValuesIn(HOSTILE_FILES),
                         [](const auto& test) { return test.param.m_Name; });

TEST(CutOffFile, EndsInAFaultWhereverItIsCut) {
    const std::string text = DxfFile("0 LWPOLYLINE 90 3 10 0 20 0 10 9 20 0 42 1 10 9 20 9 " + LINE);
    for (size_t nEnd = 0; nEnd < text.size() - std::string("EOF\n").size(); ++nEnd) {
        EXPECT_FALSE(ReadDxfText(text.substr(0, nEnd), "test.dxf").m_Findings.empty()) << nEnd;
    }
}

TEST(Faults, BeyondAHundredAreCounted) {
    const SDrawing drawing = ReadEntities(Repeated(CIRCLE_WITH + "nan ", 1000));
    ASSERT_EQ(drawing.m_Findings.size(), 101U);
    EXPECT_EQ(drawing.m_Findings.back().m_Message, "and 900 more of this");
}

TEST(Kinds, BeyondFiftyAreCountedTogether) {
    std::string entities;
    for (int i = 0; i < 1000; ++i) {
        entities.append("0 KIND").append(std::to_string(i)).append(" 8 0 ");
    }
    EXPECT_LE(ReadEntities(entities).m_Findings.size(), 51U);
}

TEST(UnnamedBlock, GivesItsEntitiesToNobody) {
    const SDrawing drawing =
        ReadEntities("", "0 BLOCK 2 A 10 0 20 0 0 ENDBLK 0 BLOCK 10 0 20 0 " + LINE + "0 ENDBLK " + LINE);
    EXPECT_THAT(drawing.m_Paths, IsEmpty());
}

TEST(Vertices, WithoutAPolylineAreNone) {
    const SDrawing drawing =
        ReadEntities("0 VERTEX 10 0 20 0 0 VERTEX 10 1 20 1 0 SEQEND " + LINE +
                     "0 VERTEX 10 0 20 0 0 SEQEND 0 POLYLINE 66 1 70 0 0 SEQEND " + LINE);
    EXPECT_EQ(drawing.m_Paths.size(), 2U);
}

TEST(MissingValues, AreZero) {
    for (const char* pName :
         {"LINE", "ARC", "CIRCLE", "ELLIPSE", "LWPOLYLINE", "POLYLINE", "VERTEX", "SPLINE", "TEXT", "MTEXT",
          "INSERT", "ATTRIB", "SEQEND", "ENDBLK", "BLOCK", "LAYER"}) {
        const SDrawing drawing = ReadEntities(std::string("0 ").append(pName).append(" ").append(LINE));
        ASSERT_FALSE(drawing.m_Paths.empty()) << pName;
        EXPECT_EQ(EndOf(drawing.m_Paths.back().m_Path), (SPoint{1, 1})) << pName;
    }
}

TEST(EndsOfLines, MayBeThoseOfAnotherSystem) {
    std::string text = std::string("\xEF\xBB\xBF").append(DxfFile(LINE, "", "9 $INSUNITS 70 4"));
    text = std::regex_replace(text, std::regex("\n"), "\r\n");
    const SDrawing drawing = ReadDxfText(text, "test.dxf");
    EXPECT_THAT(FindingsOf(drawing), IsEmpty());
    EXPECT_EQ(drawing.m_Paths.size(), 1U);
    EXPECT_EQ(drawing.m_Unit, EUnit::MILLIMETRE);
}

/// A line to a point that no locale's reading of it could be mistaken for.
constexpr const char* FRACTIONS =
    "0 LINE 10 1234.5678 20 -0.125 11 1.5e3 21 +2.50E-1 0 ARC 10 0. 20 .5 40 1.25 50 22.5 51 45";

void ExpectFractions() {
    const SDrawing drawing = ReadEntities(FRACTIONS);
    EXPECT_THAT(FindingsOf(drawing), IsEmpty());
    ASSERT_EQ(drawing.m_Paths.size(), 2U);
    EXPECT_EQ(drawing.m_Paths[0].m_Path, (SPath{{1234.5678, -0.125}, {SLineTo{{1500, 0.25}}}, false}));
    EXPECT_EQ(std::get<SArcTo>(drawing.m_Paths[1].m_Path.m_Stretches[0]).m_Centre, (SPoint{0, 0.5}));
}

TEST(Numbers, HaveADecimalPointUnderADecimalComma) {
    const support::CCommaLocale locale;
    ExpectFractions();
}

/// What std::locale::global may be set to.
struct SCommaFacet : std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, HaveADecimalPointUnderAnyLocaleOfStreams) {
    const std::locale previous = std::locale::global(std::locale(std::locale::classic(), new SCommaFacet));
    ExpectFractions();
    std::locale::global(previous);
}

TEST(Path, ThatIsNoFileIsAFault) {
    const support::CTemporaryFolder folder;
    EXPECT_THAT(FindingsOf(ReadDxf(folder.PathOf("none.dxf"))),
                ElementsAre(HasSubstr("it cannot be opened")));
    EXPECT_THAT(FindingsOf(ReadDxf(folder.Path())), ElementsAre("0: it is no file"));
    EXPECT_THAT(FindingsOf(ReadDxf("/dev/zero")), ElementsAre("0: it is no file"));
}

TEST(Path, IsNamedInTheFindings) {
    const support::CTemporaryFolder folder;
    const std::string path = folder.Write("broken.dxf", "x\n");
    const SDrawing drawing = ReadDxf(path);
    ASSERT_EQ(drawing.m_Findings.size(), 1U);
    EXPECT_EQ(InWords(drawing.m_Findings[0]), path + ":1: \"x\" is no group code of a DXF file");
}

TEST(OutlineOfAHundredThousandVertices, IsReadInSeconds) {
    std::string vertices;
    for (int i = 0; i < 100'000; ++i) {
        vertices.append(" 10 ").append(std::to_string(i)).append(".25 20 ");
        vertices.append(std::to_string(i % 7)).append(".5 42 0.1");
    }
    const SDrawing drawing = ReadEntities("0 LWPOLYLINE 90 100000 70 1" + vertices);
    EXPECT_THAT(FindingsOf(drawing), IsEmpty());
    ASSERT_EQ(drawing.m_Paths.size(), 1U);
    EXPECT_EQ(drawing.m_Paths[0].m_Path.m_Stretches.size(), 100'000U);
}

TEST(FileWithMoreThanAnyDrawingHas, IsReadUpToThere) {
    const SDrawing drawing = ReadDxfText(DxfFile(Repeated(LINE, 1000)), "test.dxf",
                                         {.m_nMostCopies = 10, .m_nMostStretches = 100});
    EXPECT_EQ(drawing.m_Paths.size(), 100U);
    EXPECT_THAT(FindingsOf(drawing), ElementsAre(HasSubstr("it has more in it than any drawing has")));
}

}  // namespace

}  // namespace nestrix
