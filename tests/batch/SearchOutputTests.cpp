#include <gmock/gmock.h>

#include <limits>

#include "batch/COutputs.h"
#include "formats/PackingSvg.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CCommaLocale;
using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using support::SquareFile;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string SMALL_SEARCH =
    "--method drop " NESTRIX_SAMPLES "/squares --population 20 --generations 5 --seed 7";

/// The shell commands that switch to a decimal comma.
std::string SwitchToDecimalComma() {
    return std::string("export LOCPATH=") + CCommaLocale::Folder() + " LC_ALL=" + CCommaLocale::Name();
}

/// Without the figures of the run.
std::string LinesOfTheSearch(const SBatchResult& result) {
    return result.m_Output.substr(0, result.m_Output.find("Pieces: "));
}

}  // namespace

TEST(SmallSearch, PrintsAndDrawsWhatItAlwaysHas) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(SMALL_SEARCH + " --svg " + folder.PathOf("packing.svg"));
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Errors,
                MatchesRegex("[^\n]*/squares: 5 files, 5 pieces, up to 90 x 90, area 20250\n"));
    EXPECT_THAT(result.m_Output, StartsWith(ReadFile("golden/squares.txt")));
    EXPECT_EQ(ReadFile(folder.PathOf("packing.svg")), ReadFile("golden/squares.svg"));
}

TEST(SmallSearch, TellsNothingButItsResultWhereItIsToBeQuiet) {
    const SBatchResult loud = RunBatchProgram(SMALL_SEARCH);
    const SBatchResult quiet = RunBatchProgram(SMALL_SEARCH + " --quiet");
    EXPECT_EQ(quiet.m_Errors, "");
    EXPECT_THAT(quiet.m_Output, StartsWith("Seed: "));
    EXPECT_EQ(quiet.ValueOf("Best height: "), loud.ValueOf("Best height: "));
}

TEST(SmallSearch, DiffersWithAnotherSeed) {
    const std::string search =
        "--method drop " NESTRIX_SAMPLES "/concave --population 30 --generations 10 --seed ";
    EXPECT_NE(RunBatchProgram(search + "11").ValueOf("Average fitness= "),
              RunBatchProgram(search + "12").ValueOf("Average fitness= "));
}

TEST(SmallSearch, MutatesAsOftenAsItIsTold) {
    const std::string search =
        "--method drop " NESTRIX_SAMPLES "/concave --population 30 --generations 10 --seed 11";
    const std::string usual = LinesOfTheSearch(RunBatchProgram(search));
    EXPECT_EQ(LinesOfTheSearch(RunBatchProgram(search + " --mutation 0.1")), usual);
    EXPECT_NE(LinesOfTheSearch(RunBatchProgram(search + " --mutation 1")), usual);
}

TEST(SmallSearch, WithoutASeedSaysWhichOneRepeatsIt) {
    const std::string search = "--method drop " NESTRIX_SAMPLES "/concave --population 10 --generations 3";
    const SBatchResult first = RunBatchProgram(search);
    const SBatchResult again = RunBatchProgram(search + " --seed " + first.ValueOf("Seed: "));
    EXPECT_EQ(first.m_nStatus, 0);
    EXPECT_EQ(LinesOfTheSearch(first), LinesOfTheSearch(again));
}

TEST(DocumentedPicture, IsWhatItsCommandDraws) {
    const CTemporaryFolder folder;
    const std::string picture = folder.PathOf("packing.svg");
    ASSERT_EQ(
        RunBatchProgram("--method drop " NESTRIX_SAMPLES "/concave --seed 1 --svg " + picture).m_nStatus, 0);
    EXPECT_EQ(ReadFile(picture), ReadFile(NESTRIX_SAMPLES "/../docs/images/packing.svg"));
}

TEST(BestHeight, IsTheStackedHeightLessTheBestFitness) {
    const SBatchResult result = RunBatchProgram(SMALL_SEARCH);
    const float fStacked = 90.0F + 75.0F + 60.0F + 45.0F + 30.0F;
    const float fFitness = std::stof(result.ValueOf("Best Chromosome so far is "));
    EXPECT_EQ(std::stof(result.ValueOf("Best height: ")), fStacked - fFitness);
}

TEST(BestHeight, OfOnePieceIsItsOwn) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(folder.Write("a.pol", SquareFile(20.0F)) +
                                                " --method drop --population 3 --generations 2");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.ValueOf("Best height: "), "20.000000");
}

TEST(ZeroGenerations, GiveTheBestOfTheFirst) {
    const SBatchResult result =
        RunBatchProgram("--method drop " NESTRIX_SAMPLES "/squares --generations 0 --seed 1");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Output, StartsWith("Seed: 1\nBest height: "));
}

TEST(DecimalComma, ChangesNeitherLinesNorPicture) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(
        SMALL_SEARCH + " --mutation 0.1 --svg " + folder.PathOf("packing.svg"), SwitchToDecimalComma());
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_THAT(result.m_Output, StartsWith(ReadFile("golden/squares.txt")));
    EXPECT_EQ(ReadFile(folder.PathOf("packing.svg")), ReadFile("golden/squares.svg"));
}

TEST(StandardOutput, ThatCannotBeWrittenFails) {
    const SBatchResult result = RunBatchProgram(SMALL_SEARCH + " >/dev/full");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("standard output could not be written"));
}

/// A search that gets better and better, and its picture.
void ExpectTheSamePictureAs(const std::string& redirection, int nStatus) {
    const CTemporaryFolder folder;
    const std::string search =
        "--method drop " NESTRIX_SAMPLES "/concave --population 20 --generations 40 --seed 3 --svg ";
    const std::string first =
        "--method drop " NESTRIX_SAMPLES "/concave --population 20 --generations 5 --seed 3 --svg ";
    ASSERT_EQ(RunBatchProgram(search + folder.PathOf("expected.svg")).m_nStatus, 0);
    ASSERT_EQ(RunBatchProgram(first + folder.PathOf("first.svg")).m_nStatus, 0);
    ASSERT_NE(ReadFile(folder.PathOf("first.svg")), ReadFile(folder.PathOf("expected.svg")));
    const SBatchResult result = RunBatchProgram(search + folder.PathOf("packing.svg") + " " + redirection);
    EXPECT_EQ(result.m_nStatus, nStatus);
    EXPECT_EQ(ReadFile(folder.PathOf("packing.svg")), ReadFile(folder.PathOf("expected.svg")));
    EXPECT_EQ(EntryCount(folder.Path()), 3);
}

TEST(StandardOutput, ThatCannotBeWrittenDoesNotCutTheSearchOffFromItsPicture) {
    ExpectTheSamePictureAs(">/dev/full", 1);
    ExpectTheSamePictureAs("| head -n 2 >/dev/null", 0);  // the status of head
}

TEST(StandardOutput, ThatIsClosedDoesNotCutTheSearchOffFromItsPicture) {
    ExpectTheSamePictureAs(">&-", 1);
    ExpectTheSamePictureAs("<&- >&- 2>&-", 1);
}

TEST(StandardInput, ThatIsClosedChangesNothing) {
    ExpectTheSamePictureAs("<&-", 0);
}

TEST(StandardError, ThatIsClosedChangesNothing) {
    ExpectTheSamePictureAs("2>&-", 0);
}

TEST(StandardOutput, BeyondTheLargestSizeOfAFileDoesNotKillTheProgram) {
    const CTemporaryFolder folder;
    const std::string search =
        "--method drop " NESTRIX_SAMPLES "/squares --population 2 --generations 200 --seed 1 >";
    const SBatchResult result = RunBatchProgram(search + folder.PathOf("out"), "ulimit -f 8");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("standard output could not be written"));
}

TEST(StandardError, ThatCannotBeWrittenKeepsTheStatus) {
    EXPECT_EQ(RunBatchProgram("missing.pol 2>/dev/full").m_nStatus, 2);
}

TEST(StandardOutput, ThatCannotBeWrittenFailsWithoutAnyGeneration) {
    EXPECT_EQ(
        RunBatchProgram("--method drop " NESTRIX_SAMPLES "/squares --generations 0 >/dev/full").m_nStatus, 1);
}

TEST(StandardOutput, ThatNobodyReadsAnyMoreDoesNotCutTheSearchOff) {
    CRunningBatch batch("--method drop " NESTRIX_SAMPLES "/squares --generations 2000000000");
    ASSERT_TRUE(batch.ReadUntil("Generation 1 "));
    batch.CloseOutput();
    batch.WaitUntilItHasWorkedFor(1.0);
    batch.Signal(SIGINT);
    EXPECT_EQ(batch.WaitForEnd(), 1);
}

TEST(DroppedSearch, TellsItsResultAndHowToRepeatIt) {
    const SBatchResult result = RunBatchProgram(SMALL_SEARCH);
    EXPECT_THAT(result.m_Output,
                testing::EndsWith("\nEnded: all generations are bred\nRepeat with: " NESTRIX_BATCH
                                  " pack --method drop " NESTRIX_SAMPLES
                                  "/squares --population 20 --generations 5 --seed 7\n"));
    EXPECT_EQ(result.ValueOf("Pieces: "), "5");
    EXPECT_NEAR(std::stod(result.ValueOf("Density: ")),
                20250.0 / 4.0 / std::stod(result.ValueOf("Best height: ")), 0.01);
}

TEST(DroppedSearch, WritesALineForEachImprovement) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram("--method drop " NESTRIX_SAMPLES
                                                "/concave --population 20 --generations 40 --seed 3 --csv " +
                                                folder.PathOf("log.csv"));
    EXPECT_EQ(result.m_nStatus, 0);
    const std::string table = ReadFile(folder.PathOf("log.csv"));
    EXPECT_THAT(table, StartsWith("seconds,step,height,density\n"));
    EXPECT_GE(support::CountOf("\n", table), 3);
}

TEST(EndlessPolygons, GiveNoHeightAndNoPicture) {
    const CTemporaryFolder folder;
    const std::string huge = "3\n0,0\n1,0\n0,3e38\n;1,3e38\n0,0\n";
    const std::string piece = folder.Write("huge.pol", huge);
    const SBatchResult result =
        RunBatchProgram(piece + " " + piece + " --method drop --lenient --generations 1 --svg " +
                        folder.PathOf("packing.svg"));
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("too large: their packing has no finite height"));
    EXPECT_THAT(result.m_Output, Not(HasSubstr("Best height")));
    EXPECT_EQ(EntryCount(folder.Path()), 1);
    EXPECT_EQ(RunBatchProgram(piece + " " + piece + " --method drop --lenient --generations 1").m_nStatus, 1);
}

}  // namespace nestrix
