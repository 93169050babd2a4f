#include <gmock/gmock.h>
#include <unistd.h>

#include <array>
#include <chrono>
#include <fstream>
#include <set>

#include "display/CPolyDisplay.h"
#include "tests/app/RunFixture.h"
#include "tests/display/CCanvasHost.h"
#include "tests/display/EventPump.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

using support::PrintedBy;
using support::PumpUntil;
using testing::HasSubstr;
using testing::Not;

class RunControl : public support::RunFixture {};

TEST_F(RunControl, ClearsTheLastRunAndStartsNoneWhenTheListIsEmpty) {
    ListSquares(3);
    SetRun(4, 5);
    RunToItsEnd();
    EXPECT_EQ(PointCount(), 6U);
    const CPolyThread* pFinished = m_pFrame->m_pThread;
    Press("ID_BTN_CLEAR");
    SetRun(4, 30);
    EXPECT_EQ(Press("ID_BTN_RUN_GA"), "");
    EXPECT_EQ(PointCount(), 0U);
    EXPECT_TRUE(Container().m_Polygons.empty());
    EXPECT_TRUE(Container().m_Population.empty());
    EXPECT_EQ(m_pFrame->m_nGenerations, 30);
    EXPECT_EQ(m_pFrame->m_pBestPlotter->m_fMaxX, 30.0F);
    EXPECT_EQ(m_pFrame->m_pThread, pFinished);
}

TEST_F(RunControl, TakesTheLastCurvesOffTheScreenWhenTheListIsEmpty) {
    const std::array plotters{m_pFrame->m_pAvgPlotter, m_pFrame->m_pBestPlotter,
                              m_pFrame->m_pTotalPopPlotter};
    std::vector<support::CPicture> empty;
    for (CPlotter* pPlotter : plotters) {
        pPlotter->Reshape(30.0F);
        empty.push_back(support::CCanvasHost::Paint(*pPlotter));
    }
    ListSquares(3);
    SetRun(4, 30);
    RunToItsEnd();
    for (CPlotter* pPlotter : plotters) {
        ASSERT_TRUE(PumpUntil([&] { return !support::CCanvasHost::IsRepainted(*pPlotter); }));
    }
    Press("ID_BTN_CLEAR");
    // Each plot by a run of its own, since watching one would miss the paints of the others.
    for (size_t i = 0; i < plotters.size(); ++i) {
        Press("ID_BTN_RUN_GA");
        EXPECT_TRUE(support::CCanvasHost::AwaitPaint(*plotters[i]) == empty[i]) << i;
    }
}

TEST_F(RunControl, StartsNoThreadWhenTheListHasNeverHeldAnything) {
    EXPECT_EQ(Press("ID_BTN_RUN_GA"), "");
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
}

TEST_F(RunControl, TakesItsParametersFromTheForm) {
    ListSquares(3);
    SetRun(7, 4);
    Control<wxSlider>("ID_SLIDER_MUTATION").SetValue(25);
    Control<wxSlider>("ID_SLIDER_CULL_THRESHOLD").SetValue(40);
    RunToItsEnd();
    EXPECT_EQ(Container().m_Polygons.size(), 3U);
    EXPECT_EQ(Container().PopulationSize(), 7);
    EXPECT_EQ(Container().m_fCullThreshold, 0.4F);
    EXPECT_EQ(static_cast<float>(g_MutationProbability), 0.25F);
    EXPECT_EQ(m_pFrame->m_nGenerations, 4);
    EXPECT_EQ(Container().m_pEventHandler, m_pFrame);
    EXPECT_EQ(Container().m_pContactDisplay, m_pFrame->m_pDisplay);
}

TEST_F(RunControl, PrintsItsBeginningItsGenerationsAndItsEnd) {
    ListSquares(2);
    SetRun(2, 1);
    const std::string printed = RunToItsEnd();
    EXPECT_THAT(printed, HasSubstr("Thread Run returned: 0\n"));
    EXPECT_THAT(printed, HasSubstr("Inside the entry code\n"));
    EXPECT_THAT(printed, HasSubstr("Newly Created 2\n"));
    EXPECT_THAT(printed, HasSubstr("Generation 1 has been created with 2 many individuals\n"));
    // Not always the last line: a search as short as this may end before its start is reported.
    EXPECT_THAT(printed, HasSubstr("Thread Exited\n"));
}

TEST_F(RunControl, SpansThePlotsOverAllGenerations) {
    ListSquares(2);
    SetRun(2, 12);
    RunToItsEnd();
    for (const CPlotter* pPlotter :
         {m_pFrame->m_pAvgPlotter, m_pFrame->m_pBestPlotter, m_pFrame->m_pTotalPopPlotter}) {
        EXPECT_EQ(pPlotter->m_fMaxX, 12.0F);
        EXPECT_EQ(pPlotter->m_Points.size(), 13U);
    }
}

/// The numbers that the search prints after this text, one a generation but the first.
std::vector<float> NumbersAfter(const std::string& text, const std::string& printed) {
    std::vector<float> numbers;
    for (size_t i = printed.find(text); i != std::string::npos; i = printed.find(text, i + 1)) {
        numbers.push_back(std::stof(printed.substr(i + text.size())));
    }
    return numbers;
}

std::vector<float> ValuesButTheFirst(const CPlotter& plotter) {
    std::vector<float> values;
    for (size_t i = 1; i < plotter.m_Points.size(); ++i) {
        values.push_back(plotter.m_Points[i].y);
    }
    return values;
}

TEST_F(RunControl, PlotsWhatWasTrueWhenEachGenerationEnded) {
    // So few generations that the search is over before the window has handled its first notice.
    ListSquares(12, 90);
    SetRun(10, 60);
    const std::string printed = RunToItsEnd();
    const std::vector<float> averages = NumbersAfter("Average fitness= ", printed);
    ASSERT_EQ(averages.size(), 60U);
    EXPECT_GT(std::set<float>(averages.begin(), averages.end()).size(), 1U) << "nothing to tell apart";
    EXPECT_EQ(ValuesButTheFirst(*m_pFrame->m_pAvgPlotter), averages);
    EXPECT_EQ(ValuesButTheFirst(*m_pFrame->m_pBestPlotter),
              NumbersAfter("Best Chromosome so far is ", printed));
}

TEST_F(RunControl, RefusesASecondRunWhileOneIsRunning) {
    StartLongRun();
    CPolyThread* pRunning = m_pFrame->m_pThread;
    SetRun(3, 7);
    const std::string printed = Press("ID_BTN_RUN_GA");
    EXPECT_THAT(printed, HasSubstr("Algorithm thread is already running\n"));
    EXPECT_THAT(printed, Not(HasSubstr("Thread Run returned")));
    EXPECT_EQ(m_pFrame->m_pThread, pRunning);
    EXPECT_EQ(m_pFrame->m_nGenerations, 1000000);
    EXPECT_EQ(Container().m_Polygons.size(), 5U);
}

TEST_F(RunControl, StopsAtOnceAndForgetsTheThread) {
    StartLongRun();
    ASSERT_TRUE(PumpUntil([this] { return PointCount() > 2; }));
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_THAT(Press("ID_BTN_STOP"), HasSubstr("Thread Exited\n"));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(300));
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
    EXPECT_TRUE(Container().m_bStop);
}

TEST_F(RunControl, StopsARunThatHasHardlyBegun) {
    for (int i = 0; i < 50; ++i) {
        List().Clear();
        StartLongRun();
        Press("ID_BTN_STOP");
        ASSERT_EQ(m_pFrame->m_pThread, nullptr);
    }
}

TEST_F(RunControl, HandlesNoticesThatWereStillQueuedWhenItStopped) {
    StartLongRun();
    ASSERT_TRUE(PumpUntil([this] { return Container().PopulationSize() == 100; }));
    wxMilliSleep(20);
    const size_t nBefore = PointCount();
    Press("ID_BTN_STOP");
    support::PumpPending();
    EXPECT_GT(PointCount(), nBefore);
}

TEST_F(RunControl, StopsNothingWithoutARun) {
    EXPECT_EQ(Press("ID_BTN_STOP"), "");
    EXPECT_TRUE(Container().m_bStop);
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
}

TEST_F(RunControl, RunsAgainAfterAStop) {
    StartLongRun();
    Press("ID_BTN_STOP");
    support::PumpPending();
    SetRun(4, 3);
    EXPECT_THAT(RunToItsEnd(), HasSubstr("Generation 3 has been created with 4 many individuals\n"));
    EXPECT_EQ(PointCount(), 4U);
}

TEST_F(RunControl, RunsTwiceInARow) {
    ListSquares(3);
    SetRun(4, 3);
    RunToItsEnd();
    SetRun(5, 2);
    EXPECT_THAT(RunToItsEnd(), HasSubstr("Generation 2 has been created with 5 many individuals\n"));
    EXPECT_EQ(PointCount(), 3U);
    EXPECT_EQ(Container().PopulationSize(), 5);
    EXPECT_EQ(Container().m_Polygons.size(), 3U);
}

TEST_F(RunControl, StopsAFinishedRunWithoutAWord) {
    ListSquares(2);
    SetRun(2, 1);
    RunToItsEnd();
    EXPECT_EQ(Press("ID_BTN_STOP"), "");
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
}

/// Of the process, in megabytes.
int AddressSpace() {
    long nPages = 0;
    std::ifstream("/proc/self/statm") >> nPages;
    return static_cast<int>(nPages * sysconf(_SC_PAGESIZE) >> 20);
}

TEST_F(RunControl, JoinsTheThreadsOfFinishedRuns) {
    constexpr int RUNS = 160;
    ListSquares(2);
    SetRun(2, 0);
    RunToItsEnd();
    const int nBefore = AddressSpace();
    for (int i = 0; i < RUNS; ++i) {
        RunToItsEnd();
    }
    // A thread that nobody joins keeps its stack, of which each has 8 MB: far more than the toolkit may take
    // once.
    EXPECT_LT(AddressSpace() - nBefore, RUNS * 8 / 2);
}

TEST_F(RunControl, EndsWithTheWindow) {
    StartLongRun();
    ASSERT_TRUE(PumpUntil([this] { return PointCount() > 2; }));
    EXPECT_THAT(PrintedBy([this] { CloseFrame(); }), HasSubstr("Thread Exited\n"));
}

TEST_F(RunControl, EndsWithTheWindowWhenItHasHardlyBegun) {
    StartLongRun();
    EXPECT_THAT(PrintedBy([this] { CloseFrame(); }), HasSubstr("Thread Exited\n"));
}

}  // namespace

}  // namespace nestrix
