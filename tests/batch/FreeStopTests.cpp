#include <gmock/gmock.h>
#include <signal.h>
#include <string.h>

#include <chrono>

#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/TextFiles.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using testing::HasSubstr;

namespace {

const std::string LONG_SEARCH = NESTRIX_SAMPLES "/concave --time 10h ";

/// Sends the signal and waits for the end, which must come soon and with a result.
void ExpectResultSoonAfter(CRunningBatch& batch, int nSignal) {
    const auto begin = std::chrono::steady_clock::now();
    batch.Signal(nSignal);
    EXPECT_EQ(batch.WaitForEnd(), 128 + nSignal);
    EXPECT_LT(std::chrono::steady_clock::now() - begin,
              std::chrono::milliseconds(support::UNDER_SANITIZER ? 15000 : 3000));
    EXPECT_THAT(batch.Output(), HasSubstr("\nPieces: 20\nBest height: "));
    EXPECT_THAT(batch.Output(), HasSubstr("\nEnded: stopped by a signal\n"));
}

class SignalToAFreeSearch : public testing::TestWithParam<int> {};

}  // namespace

TEST_P(SignalToAFreeSearch, GivesTheBestSoFarPrintedAndDrawn) {
    const CTemporaryFolder folder;
    CRunningBatch batch(LONG_SEARCH + "--svg " + folder.PathOf("packing.svg"));
    batch.WaitUntilItHandles(GetParam());
    batch.WaitUntilItHasWorkedFor(0.5);
    ExpectResultSoonAfter(batch, GetParam());
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("Packing of 20 pieces"));
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

INSTANTIATE_TEST_SUITE_P(All, SignalToAFreeSearch, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& signal) { return std::string(sigabbrev_np(signal.param)); });

TEST(FreeSearchStop, AtTheVeryBeginningStillGivesAPacking) {
    CRunningBatch batch(LONG_SEARCH);
    batch.WaitUntilItHandles(SIGINT);
    ExpectResultSoonAfter(batch, SIGINT);
}

TEST(FreeSearchStop, OnSeveralThreadsEndsThemAll) {
    CRunningBatch batch(LONG_SEARCH + "--threads 4");
    batch.WaitUntilItHandles(SIGTERM);
    batch.WaitUntilItHasWorkedFor(0.5);
    ExpectResultSoonAfter(batch, SIGTERM);
}

TEST(FreeSearchStop, IsRepeatedByTheStepsThatItTells) {
    const CTemporaryFolder folder;
    CRunningBatch batch(LONG_SEARCH + "--svg " + folder.PathOf("stopped.svg"));
    batch.WaitUntilItHandles(SIGINT);
    batch.WaitUntilItHasWorkedFor(0.5);
    ExpectResultSoonAfter(batch, SIGINT);
    const SBatchResult stopped{0, batch.Output(), ""};
    const SBatchResult again = RunAgain(stopped, " --svg " + folder.PathOf("again.svg"));
    EXPECT_EQ(again.ValueOf("Best height: "), stopped.ValueOf("Best height: "));
    EXPECT_EQ(ReadFile(folder.PathOf("again.svg")), ReadFile(folder.PathOf("stopped.svg")));
}

}  // namespace nestrix
