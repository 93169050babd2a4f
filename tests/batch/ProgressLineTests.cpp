#include "batch/CProgressLine.h"

#include <gmock/gmock.h>

#include <cstdlib>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

using support::CountOf;
using support::CTemporaryFolder;
using support::ReadFile;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

namespace {

/// What a terminal so wide gets to see of a search whose standard output goes elsewhere.
std::string SeenOnATerminal(const std::string& arguments, int nColumns) {
    const CTemporaryFolder folder;
    // The first line of the record and the last are of the record itself.
    const std::string command = "script -qec 'stty cols " + std::to_string(nColumns) +
                                "; " NESTRIX_BATCH " " + arguments + " >/dev/null' " + folder.PathOf("seen") +
                                " >/dev/null </dev/null";
    EXPECT_EQ(std::system(command.c_str()), 0);
    const std::string seen = ReadFile(folder.PathOf("seen"));
    // So is the summary of the one input.
    const size_t nFrom = seen.find('\n', seen.find('\n') + 1) + 1;
    return seen.substr(nFrom, seen.find("\nScript done") - nFrom);
}

/// What is left to be read in a line after all has been written over it.
std::string LeftInTheLine(const std::string& seen) {
    std::string line;
    size_t nColumn = 0;
    for (const char c : seen) {
        nColumn = c == '\r' ? 0 : nColumn;
        if (c != '\r' && c != '\n') {
            line.resize(std::max(line.size(), nColumn + 1), ' ');
            line[nColumn++] = c;
        }
    }
    return line;
}

}  // namespace

TEST(ProgressText, TellsTimeHeightDensityAndForHowLongItHasNotChanged) {
    EXPECT_EQ(ProgressText(75.9, SImprovement{60.0, 0, 287.34512, 0.83126}),
              "1:15  height 287.34512  density 83.13 %  unchanged for 0:15");
}

TEST(ProgressText, CountsTheHours) {
    EXPECT_EQ(ProgressText(3723.0, SImprovement{3723.0, 0, 1.0, 1.0}),
              "1:02:03  height 1  density 100.00 %  unchanged for 0:00");
    EXPECT_THAT(ProgressText(36000.0, std::nullopt), HasSubstr("10:00:00 "));
}

TEST(ProgressText, BeforeThereIsAPackingSaysSo) {
    EXPECT_EQ(ProgressText(7.0, std::nullopt), "0:07  no packing yet");
}

TEST(FreeProgress, TellsTheLastPackingThatItHeardOf) {
    const CRelaxed<bool> stop = false;
    CFreeProgress progress(stop);
    EXPECT_FALSE(progress.Best());
    progress.BetterPacking({{}, {-1}, {}, 1234}, {5.0, 99, 0.5});
    ASSERT_TRUE(progress.Best());
    EXPECT_EQ(progress.Best()->m_Height, 123.4);
    EXPECT_EQ(progress.Best()->m_Density, 0.5);
    EXPECT_EQ(progress.Best()->m_Seconds, 5.0);
}

TEST(FreeProgress, HandsOnTheRequestToStop) {
    CRelaxed<bool> stop = false;
    const CFreeProgress progress(stop);
    EXPECT_FALSE(progress.IsToStop());
    stop = true;
    EXPECT_TRUE(progress.IsToStop());
}

TEST(ProgressLine, IsRedrawnOnATerminalWhileTheSearchGoesOn) {
    const std::string seen = SeenOnATerminal(NESTRIX_SAMPLES "/concave --time 2s", 100);
    EXPECT_THAT(seen, ContainsRegex("0:01  height [0-9.]+  density [0-9.]+ %  unchanged for 0:0[01]"));
    EXPECT_GE(CountOf("\r", seen), 5);
}

TEST(ProgressLine, LeavesNothingBehind) {
    const std::string seen = SeenOnATerminal(NESTRIX_SAMPLES "/concave --time 1s", 100);
    EXPECT_THAT(seen, HasSubstr("height"));
    EXPECT_EQ(LeftInTheLine(seen).find_first_not_of(' '), std::string::npos);
    EXPECT_THAT(seen, Not(HasSubstr("\n")));
    EXPECT_TRUE(seen.ends_with('\r'));
}

TEST(ProgressLine, StaysWithinANarrowTerminal) {
    const std::string seen = SeenOnATerminal(NESTRIX_SAMPLES "/concave --time 1s", 20);
    EXPECT_THAT(seen, HasSubstr("\r0:00  height"));
    EXPECT_EQ(LeftInTheLine(seen).size(), 19U);
}

TEST(ProgressLine, IsNotDrawnForDropping) {
    EXPECT_EQ(SeenOnATerminal(NESTRIX_SAMPLES "/concave --method drop --generations 2", 100), "");
}

/// What is written to a file meanwhile, which is no terminal.
std::string WrittenWithin(std::chrono::milliseconds time, std::chrono::milliseconds between) {
    const CTemporaryFolder folder;
    std::FILE* const pFile = std::fopen(folder.PathOf("errors").c_str(), "w");
    EXPECT_NE(pFile, nullptr);
    {
        const CRelaxed<bool> stop = false;
        const CFreeProgress progress(stop);
        const CProgressLine line(progress, pFile, between);
        std::this_thread::sleep_for(time);
    }
    std::fclose(pFile);
    return ReadFile(folder.PathOf("errors"));
}

TEST(ProgressLine, IsALineEveryFewSecondsWhereThereIsNoTerminal) {
    using std::chrono::milliseconds;
    EXPECT_EQ(WrittenWithin(milliseconds(100), milliseconds(10'000)), "");
    const std::string written = WrittenWithin(milliseconds(300), milliseconds(20));
    EXPECT_THAT(written, testing::StartsWith("0:00  no packing yet\n0:00  no packing yet\n"));
    EXPECT_THAT(written, Not(HasSubstr("\r")));
}

TEST(ProgressLine, IsNotThereForThoseWhoWantItQuiet) {
    const SBatchResult result = RunBatchProgram(NESTRIX_SAMPLES "/concave --time 6s --quiet");
    EXPECT_EQ(result.m_Errors, "");
    EXPECT_THAT(RunBatchProgram(NESTRIX_SAMPLES "/concave --time 6s").m_Errors,
                ContainsRegex("\n0:0[56]  height [0-9.]+  density [0-9.]+ %  unchanged for 0:0[0-6]\n$"));
}

}  // namespace nestrix
