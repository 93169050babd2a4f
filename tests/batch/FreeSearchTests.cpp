#include <gmock/gmock.h>

#include "batch/InputFormats.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CCommaLocale;
using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

const std::string CONCAVE = NESTRIX_SAMPLES "/concave ";
const std::string PUZZLE = NESTRIX_SAMPLES "/puzzle ";

/// Searches for a while, then again as the first search says, and compares the pictures.
void ExpectToRepeatItself(const std::string& pieces, const std::string& options) {
    const CTemporaryFolder folder;
    const SBatchResult first =
        RunBatchProgram(pieces + options + " --time 1s --svg " + folder.PathOf("first.svg"));
    ASSERT_EQ(first.m_nStatus, 0) << first.m_Errors;
    const SBatchResult again = RunAgain(first, " --svg " + folder.PathOf("again.svg"));
    EXPECT_EQ(again.m_nStatus, 0) << again.m_Errors;
    EXPECT_EQ(again.ValueOf("Ended: "), "all steps are taken");
    for (char const* const pLabel : {"Seed: ", "Steps: ", "Threads: ", "Best height: "}) {
        EXPECT_EQ(again.ValueOf(pLabel), first.ValueOf(pLabel)) << pLabel;
    }
    EXPECT_NE(ReadFile(folder.PathOf("first.svg")), "");
    EXPECT_EQ(ReadFile(folder.PathOf("again.svg")), ReadFile(folder.PathOf("first.svg")));
}

}  // namespace

TEST(FreeSearch, TellsItsResultAndHowToRepeatIt) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--quiet --steps 200 --seed 5 --threads 1");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.m_Errors, "");
    EXPECT_THAT(result.m_Output, MatchesRegex("Seed: 5\n"
                                              "Steps: 200\n"
                                              "Threads: 1\n"
                                              "Pieces: 20\n"
                                              "Best height: [0-9.]+\n"
                                              "Density: [0-9]+\\.[0-9][0-9] %\n"
                                              "Seconds: [0-9]+\\.[0-9][0-9]\n"
                                              "Ended: all steps are taken\n"
                                              "Repeat with: " NESTRIX_BATCH " pack " NESTRIX_SAMPLES
                                              "/concave --quiet --seed 5 --threads 1 --steps 200\n"));
}

TEST(FreeSearch, TellsTheDensityOfItsHeight) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--steps 200 --seed 5");
    const double area = 53351.8;  // of the set
    EXPECT_NEAR(std::stod(result.ValueOf("Density: ")),
                100.0 * area / (400.0 * std::stod(result.ValueOf("Best height: "))), 0.006);
}

TEST(FreeSearch, LimitedByTimeIsRepeatedByTheStepsThatItTells) {
    ExpectToRepeatItself(CONCAVE, "");
    ExpectToRepeatItself(CONCAVE, "--threads 1");
    ExpectToRepeatItself(PUZZLE,
                         "--threads 2 --width 333.3 --spacing 0.5 --margin 1.25 --turns 0,180 --mirror");
}

TEST(FreeSearch, DiffersWithAnotherSeed) {
    const CTemporaryFolder folder;
    const auto pictureFor = [&](const std::string& seed) {
        const std::string path = folder.PathOf(seed + ".svg");
        EXPECT_EQ(RunBatchProgram(CONCAVE + "--steps 2000 --seed " + seed + " --svg " + path).m_nStatus, 0);
        return ReadFile(path);
    };
    EXPECT_NE(pictureFor("1"), pictureFor("2"));
}

TEST(FreeSearch, WithoutASeedTakesAnotherOneEverySecond) {
    const std::string search = CONCAVE + "--steps 0";
    const SBatchResult first = RunBatchProgram(search);
    EXPECT_NE(first.ValueOf("Seed: "), RunBatchProgram(search, "sleep 1.1").ValueOf("Seed: "));
}

TEST(FreeSearch, WithoutAnyStepGivesAPackingAtOnce) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--steps 0");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.ValueOf("Pieces: "), "20");
    EXPECT_EQ(result.ValueOf("Steps: "), "0");
}

TEST(FreeSearch, KeepsWithinItsTime) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--time 700ms");
    EXPECT_EQ(result.ValueOf("Ended: "), "the time is up");
    EXPECT_GE(std::stod(result.ValueOf("Seconds: ")), 0.7);
}

TEST(FreeSearch, EndsAtItsTargetHeight) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--target-height 270 --time 60s");
    EXPECT_EQ(result.ValueOf("Ended: "), "the target is reached");
    EXPECT_LE(std::stod(result.ValueOf("Best height: ")), 270.0);
}

TEST(FreeSearch, EndsAtItsTargetDensity) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--target-density 50% --time 60s");
    EXPECT_EQ(result.ValueOf("Ended: "), "the target is reached");
    EXPECT_GE(std::stod(result.ValueOf("Density: ")), 50.0);
}

TEST(FreeSearch, EndsWhenItsPatienceIsOver) {
    const SBatchResult result = RunBatchProgram(CONCAVE + "--patience 300ms");
    EXPECT_EQ(result.ValueOf("Ended: "), "nothing better was found for so long");
    EXPECT_GE(std::stod(result.ValueOf("Seconds: ")), 0.3);
}

TEST(FreeSearch, DrawsEveryPieceWithinTheStripAndItsMargin) {
    const CTemporaryFolder folder;
    const std::string path = folder.PathOf("packing.svg");
    const SBatchResult result =
        RunBatchProgram(PUZZLE + "--steps 500 --seed 1 --width 350 --margin 5 --svg " + path);
    ASSERT_EQ(result.m_nStatus, 0);
    const SInputFile drawn = ReadInput(path, {});
    ASSERT_EQ(drawn.m_Pieces.size(), 16U);
    const double height = std::stod(result.ValueOf("Best height: "));
    const double unit = 1e-5;  // of the grid: a drawing is not rounded to it
    double highest = 0.0;
    for (const SInputPiece& piece : drawn.m_Pieces) {
        for (const SPoint& point : piece.m_Piece.m_Shape.m_Outline) {
            EXPECT_GE(point.m_X, 5.0 - unit);
            EXPECT_LE(point.m_X, 345.0 + unit);
            EXPECT_GE(point.m_Y, 5.0 - unit);
            highest = std::max(highest, point.m_Y);
        }
    }
    EXPECT_NEAR(highest, height, unit);
}

TEST(FreeSearch, PacksAClockwiseOutlineWithoutAWarning) {
    const CTemporaryFolder folder;
    const SBatchResult result = RunBatchProgram(folder.Write("a.pol", "3\n0,0\n0,9\n9,0\n;9,9\n0,0") + " " +
                                                CONCAVE + "--quiet --steps 0");
    EXPECT_EQ(result.m_nStatus, 0);
    EXPECT_EQ(result.m_Errors, "");
    EXPECT_EQ(result.ValueOf("Pieces: "), "21");
}

TEST(FreeSearch, PrintsAndDrawsTheSameUnderADecimalComma) {
    const CTemporaryFolder folder;
    const std::string search = CONCAVE + "--steps 200 --seed 2 --spacing 0.5 --svg ";
    const std::string comma =
        std::string("export LOCPATH=") + CCommaLocale::Folder() + " LC_ALL=" + CCommaLocale::Name();
    const SBatchResult plain = RunBatchProgram(search + folder.PathOf("plain.svg"));
    const SBatchResult other = RunBatchProgram(search + folder.PathOf("other.svg"), comma);
    EXPECT_EQ(other.ValueOf("Best height: "), plain.ValueOf("Best height: "));
    EXPECT_EQ(ReadFile(folder.PathOf("other.svg")), ReadFile(folder.PathOf("plain.svg")));
}

TEST(FreeSearch, WhoseLinesCannotBeWrittenStillDrawsItsPicture) {
    const CTemporaryFolder folder;
    const SBatchResult result =
        RunBatchProgram(CONCAVE + "--steps 10 --svg " + folder.PathOf("packing.svg") + " >/dev/full");
    EXPECT_EQ(result.m_nStatus, 1);
    EXPECT_THAT(result.m_Errors, HasSubstr("standard output could not be written"));
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("</svg>"));
}

TEST(FreeSearch, WithoutAPictureLeavesNoFile) {
    const CTemporaryFolder folder;
    EXPECT_EQ(RunBatchProgram(CONCAVE + "--steps 10", "cd " + folder.Path().native()).m_nStatus, 0);
    EXPECT_EQ(EntryCount(folder.Path()), 0);
}

}  // namespace nestrix
