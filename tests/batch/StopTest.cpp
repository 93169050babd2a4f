#include <gmock/gmock.h>
#include <signal.h>

#include "BatchProgram.h"
#include "CContainer.h"
#include "CTemporaryFolder.h"
#include "StopSignals.h"
#include "TextFiles.h"

using support::CTemporaryFolder;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

const std::string ENDLESS_SEARCH = NESTRIX_SAMPLES "/squares --generations 2147483647";

/// A signal in the middle of an endless search.
void ExpectResultAfter(int nSignal) {
    const CTemporaryFolder folder;
    CRunningBatch batch(ENDLESS_SEARCH + " --seed 5 --svg " + folder.PathOf("packing.svg"));
    ASSERT_TRUE(batch.ReadUntil("Generation 3 "));
    batch.Signal(nSignal);
    EXPECT_EQ(batch.WaitForEnd(), 0);
    EXPECT_THAT(batch.Output(), MatchesRegex(".*\nSeed: 5\nBest height: [0-9.]+\n"));
    EXPECT_THAT(ReadFile(folder.PathOf("packing.svg")), HasSubstr("</svg>"));
    EXPECT_EQ(EntryCount(folder.Path()), 1);
}

/// Asks for a stop through the signals alone, as the program does.
class CStopOnRequest final : public CGenerationSink {
public:
    CStopOnRequest(CContainer& container, const CStopSignals& signals)
        : m_Container(container), m_Signals(signals) {}

    void GenerationDone(int nGeneration) override {
        m_nLast = nGeneration;
        if (m_Signals.WasRequested()) {
            m_Container.m_bStop = true;
        }
    }

    CContainer& m_Container;
    const CStopSignals& m_Signals;
    int m_nLast = -1;
};

void KeepHandler(int /*nSignal*/) {}

}  // namespace

TEST(CtrlC, StopsTheSearchAndStillWritesTheResult) {
    ExpectResultAfter(SIGINT);
}

TEST(Termination, StopsTheSearchAndStillWritesTheResult) {
    ExpectResultAfter(SIGTERM);
}

TEST(CtrlC, PressedTwiceStillWritesTheResult) {
    const CTemporaryFolder folder;
    CRunningBatch batch(ENDLESS_SEARCH + " --svg " + folder.PathOf("packing.svg"));
    ASSERT_TRUE(batch.ReadUntil("Generation 1 "));
    batch.Signal(SIGINT);
    ASSERT_TRUE(batch.ReadUntil("Seed: "));
    batch.Signal(SIGINT);
    // The second signal may find the program already done, so its status is open.
    (void)batch.WaitForEnd();
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

TEST(StopSignal, BeforeTheSearchClearsItsFlagIsNotLost) {
    CContainer container;
    const CStopSignals signals(container.m_bStop);
    CStopOnRequest sink(container, signals);
    raise(SIGINT);
    EXPECT_TRUE(container.m_bStop);
    container.RunSearch(2, 1'000'000'000, 1, sink);
    EXPECT_EQ(sink.m_nLast, 0);
}

TEST(StopSignal, SetsTheFlagAtOnce) {
    CRelaxed<bool> stopFlag = false;
    const CStopSignals signals(stopFlag);
    EXPECT_FALSE(signals.WasRequested());
    raise(SIGTERM);
    EXPECT_TRUE(stopFlag);
    EXPECT_TRUE(signals.WasRequested());
}

TEST(StopSignals, GiveTheSignalsBackToTheirPreviousHandlers) {
    struct sigaction action = {};
    action.sa_handler = KeepHandler;
    struct sigaction before = {};
    sigaction(SIGINT, &action, &before);
    {
        CRelaxed<bool> stopFlag = false;
        const CStopSignals signals(stopFlag);
    }
    struct sigaction after = {};
    sigaction(SIGINT, &before, &after);
    EXPECT_EQ(after.sa_handler, KeepHandler);
}

TEST(StopSignals, BeginAnewWithoutARequest) {
    CRelaxed<bool> stopFlag = false;
    {
        const CStopSignals signals(stopFlag);
        raise(SIGINT);
    }
    const CStopSignals signals(stopFlag);
    EXPECT_FALSE(signals.WasRequested());
}
