#include <fcntl.h>
#include <gmock/gmock.h>
#include <signal.h>
#include <string.h>
#include <sys/stat.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "batch/CStopSignals.h"
#include "tests/batch/BatchProgram.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Outlines.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

using support::CTemporaryFolder;
using support::EntryCount;
using support::ReadFile;
using support::Repeated;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::MatchesRegex;
using testing::Not;

namespace {

const std::string ENDLESS_SEARCH = "--method drop " NESTRIX_SAMPLES "/squares --generations 2147483647";

/// A signal in the middle of an endless search.
void ExpectResultAfter(int nSignal) {
    const CTemporaryFolder folder;
    CRunningBatch batch(ENDLESS_SEARCH + " --seed 5 --svg " + folder.PathOf("packing.svg"));
    ASSERT_TRUE(batch.ReadUntil("Generation 3 "));
    batch.Signal(nSignal);
    EXPECT_EQ(batch.WaitForEnd(), 128 + nSignal);
    EXPECT_THAT(batch.Output(), ContainsRegex("\nSeed: 5\nBest height: [0-9.]+\n"));
    EXPECT_THAT(batch.Output(), HasSubstr("\nEnded: stopped by a signal\n"));
    EXPECT_THAT(batch.Output(), Not(HasSubstr("Repeat with")));
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("</svg>"));
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

/// A polygon file with a round piece of very many vertices.
std::string DiscFile(int nVertices) {
    support::CSeededRandom random(1);
    return support::PolygonFileText(
        support::MakePolygon(support::ConvexOutline(random, nVertices, 300.0F, 300.0F)));
}

/// Sends the signal and waits for the end, which must come soon.
int StatusSoonAfter(CRunningBatch& batch, int nSignal) {
    const auto begin = std::chrono::steady_clock::now();
    batch.Signal(nSignal);
    const int nStatus = batch.WaitForEnd();
    EXPECT_LT(std::chrono::steady_clock::now() - begin,
              std::chrono::milliseconds(support::UNDER_SANITIZER ? 10000 : 3000));
    return nStatus;
}

void KeepHandler(int /*nSignal*/) {}

}  // namespace

TEST(CtrlC, StopsTheSearchAndStillWritesTheResult) {
    ExpectResultAfter(SIGINT);
}

TEST(Termination, StopsTheSearchAndStillWritesTheResult) {
    ExpectResultAfter(SIGTERM);
}

TEST(EndOfTheTerminal, StopsTheSearchAndStillWritesTheResult) {
    ExpectResultAfter(SIGHUP);
}

TEST(CtrlC, WithinTheFirstGenerationKeepsTheBestSoFar) {
    // Placing all of it would take minutes.
    const CTemporaryFolder folder;
    const std::string disc = folder.Write("disc.pol", DiscFile(2000));
    CRunningBatch batch("--method drop " + Repeated(disc, 20) + "--population 50000 --seed 5 --svg " +
                        folder.PathOf("best.svg"));
    batch.WaitUntilItHandles(SIGINT);
    batch.WaitUntilItHasWorkedFor(support::UNDER_SANITIZER ? 5.0 : 1.0);
    EXPECT_EQ(StatusSoonAfter(batch, SIGINT), 130);
    EXPECT_THAT(batch.Output(), ContainsRegex("^Seed: 5\nBest height: [0-9.]+\n"));
    EXPECT_THAT(ReadFile(folder.PathOf("best.svg")), HasSubstr("Packing of 20 pieces"));
}

TEST(CtrlC, BeforeThereIsAnyPackingSaysSo) {
    // The last piece has all of them walk onto each other, each pair for most of a second.
    const CTemporaryFolder folder;
    const std::string disc = folder.Write("disc.pol", DiscFile(40'000));
    const std::string beyond = folder.Write("beyond.pol", "3\n0,0\n1,0\n1,1e19\n;1,1\n0,0\n");
    CRunningBatch batch("--method drop --lenient " + Repeated(disc, 9) + beyond + " --svg " +
                        folder.PathOf("best.svg"));
    batch.WaitUntilItHandles(SIGINT);
    EXPECT_EQ(StatusSoonAfter(batch, SIGINT), 1);
    EXPECT_EQ(batch.Output(), "");
    EXPECT_EQ(EntryCount(folder.Path()), 2);
}

TEST(CtrlC, WhileThePolygonsAreReadEndsTheProgram) {
    const CTemporaryFolder folder;
    const std::string disc = folder.Write("disc.pol", DiscFile(100'000));
    CRunningBatch batch("--method drop " + Repeated(disc, 100) + "--svg " + folder.PathOf("best.svg"));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(StatusSoonAfter(batch, SIGINT), -1);
    EXPECT_EQ(batch.Output(), "");
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

class InheritedIgnorance : public testing::TestWithParam<int> {};

TEST_P(InheritedIgnorance, OfASignalIsRespected) {
    const int nOther = GetParam() == SIGTERM ? SIGHUP : SIGTERM;
    CRunningBatch batch(ENDLESS_SEARCH, GetParam());
    batch.WaitUntilItHandles(nOther);
    ASSERT_TRUE(batch.ReadUntil("Generation 1 "));
    batch.Signal(GetParam());
    EXPECT_TRUE(batch.ReadUntil("Generation 2000 ")) << "the signal has ended the search";
    batch.Signal(nOther);
    EXPECT_EQ(batch.WaitForEnd(), 128 + nOther);
}

INSTANTIATE_TEST_SUITE_P(All, InheritedIgnorance, testing::Values(SIGINT, SIGTERM, SIGHUP),
                         [](const auto& signal) { return std::string(sigabbrev_np(signal.param)); });

TEST(Termination, IsToldWithTheLastGeneration) {
    const SBatchResult result =
        RunBatchProgram(ENDLESS_SEARCH + " --quiet --seed 5 & p=$!; sleep 0.5; kill -TERM $p; wait $p");
    EXPECT_EQ(result.m_nStatus, 143);
    EXPECT_THAT(result.m_Errors,
                MatchesRegex("nestrix-batch: stopped after generation [1-9][0-9]* of 2147483647\n"));
}

TEST(Termination, IsToldAfterTheFirstGenerationToo) {
    // Each of the many draws for the next one looks at the whole population: it takes a minute.
    const std::string search = "--method drop " NESTRIX_SAMPLES "/squares --population 100000";
    const std::string untilItHasWorkedForASecond =
        "until [ $(cut -d ' ' -f 14 /proc/$p/stat) -gt $(getconf CLK_TCK) ]; do sleep 0.05; done; ";
    const SBatchResult result =
        RunBatchProgram(search + " --quiet & p=$!; " + untilItHasWorkedForASecond + "kill -TERM $p; wait $p");
    EXPECT_EQ(result.m_nStatus, 143);
    EXPECT_EQ(result.m_Errors, "nestrix-batch: stopped after generation 0 of 500\n");
}

TEST(CtrlC, PressedASecondTimeEndsTheProgramAtOnce) {
    // The reader of the pipe takes nothing, so that without it the program would wait for ever.
    const CTemporaryFolder folder;
    const std::string pipe = folder.PathOf("pipe");
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const int nReader = open(pipe.c_str(), O_RDWR | O_CLOEXEC);
    CRunningBatch batch("--method drop " + Repeated(NESTRIX_SAMPLES "/large", 4) +
                        " --population 2 --generations 2147483647 --svg " + pipe);
    ASSERT_TRUE(batch.ReadUntil("Generation 1 "));
    batch.Signal(SIGINT);
    ASSERT_TRUE(batch.ReadUntil("Ended: "));
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    EXPECT_EQ(StatusSoonAfter(batch, SIGINT), -1) << "it is killed by the signal";
    close(nReader);
}

TEST(EndOfTheTerminal, ToldTwiceAtOnceIsOneEvent) {
    const CTemporaryFolder folder;
    CRunningBatch batch(ENDLESS_SEARCH + " --svg " + folder.PathOf("packing.svg"));
    ASSERT_TRUE(batch.ReadUntil("Generation 1 "));
    batch.Signal(SIGHUP);
    batch.Signal(SIGHUP);
    EXPECT_EQ(batch.WaitForEnd(), 129);
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("</svg>"));
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

TEST(CtrlC, ThatAlsoEndsTheReaderOfThePipeStillDrawsThePicture) {
    const CTemporaryFolder folder;
    CRunningBatch batch(ENDLESS_SEARCH + " --svg " + folder.PathOf("packing.svg"));
    ASSERT_TRUE(batch.ReadUntil("Generation 1 "));
    batch.CloseOutput();
    batch.Signal(SIGINT);
    EXPECT_EQ(batch.WaitForEnd(), 1);
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("</svg>"));
}

TEST(StopSignal, MakesTheRequestAtOnce) {
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        const auto previous = signal(nSignal, SIG_DFL);
        {
            CRelaxed<bool> request = false;
            const CStopSignals signals(request);
            EXPECT_FALSE(request);
            raise(nSignal);
            raise(nSignal);  // at once: the same event told twice
            EXPECT_TRUE(request);
            EXPECT_EQ(CStopSignals::Received(), nSignal);
        }
        signal(nSignal, previous);
    }
}

TEST(StopSignals, GiveTheSignalsBackToTheirPreviousHandlers) {
    for (const int nSignal : {SIGINT, SIGTERM, SIGHUP}) {
        struct sigaction action = {};
        action.sa_handler = KeepHandler;
        struct sigaction before = {};
        sigaction(nSignal, &action, &before);
        {
            CRelaxed<bool> request = false;
            const CStopSignals signals(request);
        }
        struct sigaction after = {};
        sigaction(nSignal, &before, &after);
        EXPECT_EQ(after.sa_handler, KeepHandler);
    }
}

}  // namespace nestrix
