#include <gmock/gmock.h>

#include "batch/CInputReader.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;
using testing::IsEmpty;

namespace {

SInputSet SetOf(const std::string& path) {
    SInputSet set = ReadInputs({{path}, {}});
    EXPECT_FALSE(IsFaulty(set)) << path;
    return set;
}

/// A plate with a round hole and a rounded corner, and a triangle.
constexpr char DRAWING[] =
    R"(<svg xmlns="http://www.w3.org/2000/svg" width="200mm" height="100mm" viewBox="0 0 200 100">
  <path id="plate" d="M10 10H90A10 10 0 0 1 100 20V60H10Z"/>
  <circle cx="40" cy="35" r="12"/>
  <path id="wedge" d="M120 10L180 10L150 70Z"/>
</svg>)";

/// Whether both have the same pieces, but for where they lie.
void ExpectSamePieces(const SInputSet& a, const SInputSet& b) {
    ASSERT_EQ(a.m_Pieces.size(), b.m_Pieces.size());
    for (size_t i = 0; i < a.m_Pieces.size(); ++i) {
        EXPECT_EQ(a.m_Pieces[i].m_Name, b.m_Pieces[i].m_Name);
        EXPECT_EQ(a.m_Pieces[i].m_Shape.m_Holes.size(), b.m_Pieces[i].m_Shape.m_Holes.size());
        EXPECT_NEAR(AreaOf(a.m_Pieces[i].m_Shape), AreaOf(b.m_Pieces[i].m_Shape), 0.5);
        EXPECT_EQ(SizeInWords(a.m_Pieces[i].m_Shape), SizeInWords(b.m_Pieces[i].m_Shape));
    }
}

}  // namespace

TEST(Convert, KeepsPiecesNamesHolesAndUnitsAmongDrawings) {
    const CTemporaryFolder folder;
    const std::string svg = folder.Write("a.svg", DRAWING);
    const std::string dxf = folder.PathOf("b.dxf");
    const std::string back = folder.PathOf("c.svg");
    EXPECT_EQ(RunBatchProgram("convert " + svg + " --to " + dxf).m_nStatus, 0);
    EXPECT_EQ(RunBatchProgram("convert " + dxf + " --to " + back).m_nStatus, 0);
    const SInputSet drawn = SetOf(svg);
    EXPECT_EQ(drawn.m_Pieces.size(), 2U);
    for (const std::string& path : {dxf, back}) {
        ExpectSamePieces(drawn, SetOf(path));
        EXPECT_EQ(SetOf(path).m_Unit, EUnit::MILLIMETRE);
    }
    // The arc is still an arc.
    EXPECT_THAT(SetOf(back).m_Drawn.at(0).m_Outline.m_Stretches,
                testing::Contains(testing::VariantWith<SArcTo>(testing::_)));
}

TEST(Convert, KeepsPiecesOfOneFileWhereTheyLieToEachOther) {
    const CTemporaryFolder folder;
    const std::string svg = folder.Write("a.svg", DRAWING);
    const std::string dxf = folder.PathOf("b.dxf");
    ASSERT_EQ(RunBatchProgram("convert " + svg + " --to " + dxf).m_nStatus, 0);
    const auto distance = [](const SInputSet& set) {
        return set.m_Pieces.at(1).m_Shape.m_Outline.at(0).m_X - set.m_Drawn.at(0).m_Outline.m_Start.m_X;
    };
    EXPECT_NEAR(distance(SetOf(svg)), distance(SetOf(dxf)), 1e-4);
}

TEST(Convert, WritesAPolygonFileForEachPiece) {
    const CTemporaryFolder folder;
    const std::string svg = folder.Write("a.svg", DRAWING);
    const SBatchResult result =
        RunBatchProgram("convert " + svg + " --format pol --to " + folder.PathOf("pol/"));
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Errors, HasSubstr("note: plate: its holes are left out"));
    EXPECT_EQ(EntryCount(folder.PathOf("pol")), 2);
    EXPECT_EQ(RunBatchProgram("check --quiet " + folder.PathOf("pol")).m_nStatus, 0);
    EXPECT_NEAR(AreaOf(SetOf(folder.PathOf("pol/wedge.pol")).m_Pieces.at(0).m_Shape), 1800.0, 0.01);
    EXPECT_EQ(RunBatchProgram("convert " + svg + " --to " + folder.PathOf("a.pol")).m_nStatus, 2);
}

TEST(Convert, GivesAPolygonFileBackToTheLastDigit) {
    const CTemporaryFolder folder;
    const std::string odd = "3\n0.1,-3\n1e-07,4.7\n-2.5,1\n;0.1,4.7\n-2.5,-3\n";
    const std::string path = folder.Write("a.pol", odd);
    EXPECT_EQ(RunBatchProgram("convert " + path + " --to " + folder.PathOf("b.pol")).m_nStatus, 0);
    EXPECT_EQ(ReadFile(folder.PathOf("b.pol")), odd);
}

TEST(Convert, WritesInstancesAndReadsThemBack) {
    const CTemporaryFolder folder;
    const std::string piece = folder.Write("bar.pol", "4\n0,0\n50,0\n50,9\n0,9\n;50,9\n0,0\n");
    const std::string instance = folder.PathOf("set.json");
    const SBatchResult result =
        RunBatchProgram("convert " + piece + ":7 --width 120 --turns 0,180 --to " + instance);
    EXPECT_EQ(result.m_nStatus, 0) << result.m_Errors;
    const SInputSet read = SetOf(instance);
    ASSERT_EQ(read.m_Pieces.size(), 1U);
    EXPECT_EQ(read.m_Pieces[0].m_nQuantity, 7);
    EXPECT_EQ(read.m_Strip.m_Width, 120.0);
    EXPECT_THAT(read.m_Pieces[0].m_Turns.m_Degrees, testing::ElementsAre(0.0, 180.0));
    EXPECT_EQ(SizeInWords(read.m_Pieces[0].m_Shape), "50 x 9");
    // It is packed into the strip that it asks for.
    EXPECT_EQ(RunBatchProgram("pack " + instance + " --steps 200 --seed 1").ValueOf("Best height: "), "36");
}

TEST(Convert, TellsWhatAFormatHasNoWordsFor) {
    const CTemporaryFolder folder;
    const std::string piece = folder.Write("a.pol", support::SquareFile(10.0F));
    const SBatchResult result = RunBatchProgram("convert " + piece + ":2 --to " + folder.PathOf("a.dxf"));
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Errors, HasSubstr("each piece is written once: the format has no quantities"));
}

TEST(Convert, NamesFilesHarmlesslyAndEachDifferently) {
    const CTemporaryFolder folder;
    const std::string svg = folder.Write("a.svg", R"(<svg width="99mm" height="99mm" viewBox="0 0 99 99">
        <rect id="../up" width="5" height="5"/><rect id="x" x="10" width="5" height="5"/>
        <rect x="20" id="x" width="5" height="5"/></svg>)");
    EXPECT_EQ(RunBatchProgram("convert " + svg + " --format pol --to " + folder.PathOf("pol/")).m_nStatus, 0);
    for (char const* const pName : {"_.._up.pol", "x.pol", "x-2.pol"}) {
        EXPECT_NE(ReadFile(folder.PathOf(std::string("pol/") + pName)), "") << pName;
    }
    EXPECT_EQ(EntryCount(folder.Path()), 2);
}

TEST(Convert, RefusesTargetsThatAreNoneAndInputsThatAreFaulty) {
    const CTemporaryFolder folder;
    const std::string piece = folder.Write("a.pol", support::SquareFile(10.0F));
    for (const std::string& words : {piece, piece + " --to b.png", piece + " --to " + folder.Path().native(),
                                     piece + " --to b/ --format png", piece + " --to " + piece,
                                     std::string("/no/such.pol --to b.svg")}) {
        EXPECT_EQ(RunBatchProgram("convert " + words, "cd " + folder.Path().native()).m_nStatus, 2) << words;
    }
    EXPECT_EQ(RunBatchProgram("convert " + piece + " --to /no/such/b.svg").m_nStatus, 1);
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

}  // namespace nestrix
