#include <gmock/gmock.h>
#include <wx/log.h>

#include <chrono>
#include <fstream>
#include <memory>
#include <new>

#include "display/CPolyDisplay.h"
#include "tests/app/CDialogAnswers.h"
#include "tests/app/CScarceMemory.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/EventPump.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

using support::CScarceMemory;
using support::FrameFixture;
using support::PrintedBy;
using testing::HasSubstr;

class PolyThread : public FrameFixture {
protected:
    [[nodiscard]] std::unique_ptr<CPolyThread> MakeThread() {
        auto pThread = std::make_unique<CPolyThread>(m_pFrame);
        pThread->SetPopulation(2);
        pThread->SetGenerations(1000000000);
        return pThread;
    }
};

TEST_F(PolyThread, BeginsWithNothingToDo) {
    const CPolyThread thread(m_pFrame);
    EXPECT_EQ(thread.m_pFrame, m_pFrame);
    EXPECT_EQ(thread.m_nPopulation, 0);
    EXPECT_EQ(thread.m_nGenerations, 0);
    EXPECT_EQ(thread.GetKind(), wxTHREAD_JOINABLE);
}

TEST_F(PolyThread, KeepsItsParametersWhileItRuns) {
    const auto pThread = MakeThread();
    ASSERT_EQ(pThread->Create(), wxTHREAD_NO_ERROR);
    ASSERT_EQ(pThread->Run(), wxTHREAD_NO_ERROR);
    EXPECT_THAT(PrintedBy([&] { pThread->SetPopulation(9); }), HasSubstr("Thread is already running\n"));
    EXPECT_THAT(PrintedBy([&] { pThread->SetGenerations(9); }), HasSubstr("Thread is already running\n"));
    EXPECT_EQ(pThread->m_nPopulation, 2);
    EXPECT_EQ(pThread->m_nGenerations, 1000000000);
}

TEST_F(PolyThread, AbandonsItsSearchAndJoinsWhenItIsDestroyedWhileRunning) {
    for (int i = 0; i < 20; ++i) {
        auto pThread = MakeThread();
        ASSERT_EQ(pThread->Create(), wxTHREAD_NO_ERROR);
        ASSERT_EQ(pThread->Run(), wxTHREAD_NO_ERROR);
        EXPECT_THAT(PrintedBy([&] { pThread.reset(); }), HasSubstr("Thread Exited\n"));
        EXPECT_FALSE(m_pFrame->m_Container.m_bAbandoned) << "no other search could be run";
        EXPECT_FALSE(m_pFrame->m_Container.m_bStop);
    }
}

TEST_F(PolyThread, GoesWithTheWindowAtOnceEvenFromAFirstGenerationThatTakesSeconds) {
    constexpr int POPULATION = 10'000;
    ListSquares(1000);
    SetRun(POPULATION, 5);
    Press("ID_BTN_RUN_GA");
    const CContainer& container = m_pFrame->m_Container;
    ASSERT_TRUE(support::PumpUntil([&] { return container.PopulationSize() == POPULATION; }));
    wxMilliSleep(300);
    EXPECT_TRUE(m_pFrame->m_pBestPlotter->m_Points.empty()) << "the first generation is complete already";
    const auto begin = std::chrono::steady_clock::now();
    const std::string printed = PrintedBy([this] { CloseFrame(); });
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(1));
    EXPECT_EQ(printed, "Thread Exited\n");
}

TEST_F(PolyThread, MayBeStoppedAgain) {
    const auto pThread = MakeThread();
    ASSERT_EQ(pThread->Create(), wxTHREAD_NO_ERROR);
    ASSERT_EQ(pThread->Run(), wxTHREAD_NO_ERROR);
    pThread->StopAndJoin();
    EXPECT_FALSE(pThread->IsAlive());
    pThread->StopAndJoin();
}

TEST_F(PolyThread, IsDestroyedWithoutARunWhenItWasOnlyCreated) {
    auto pThread = MakeThread();
    ASSERT_EQ(pThread->Create(), wxTHREAD_NO_ERROR);
    EXPECT_EQ(PrintedBy([&] { pThread.reset(); }), "");
}

TEST_F(PolyThread, IsDestroyedWhenItWasNeverCreated) {
    auto pThread = MakeThread();
    EXPECT_EQ(PrintedBy([&] { pThread.reset(); }), "");
}

TEST_F(PolyThread, IsDestroyedWhenItCouldNotBeCreated) {
    auto pThread = MakeThread();
    {
        const wxLogNull quiet;
        const CScarceMemory scarce(1U << 30U);
        ASSERT_NE(pThread->Create(0xFFFFF000U), wxTHREAD_NO_ERROR);
    }
    EXPECT_EQ(PrintedBy([&] { pThread.reset(); }), "");
}

TEST_F(PolyThread, IsReportedAndForgottenByTheNextRunWhenItCouldNotBeCreated) {
    ListSquares(2);
    SetRun(2, 1);
    {
        // Less than the stack of a thread.
        const CScarceMemory scarce(6U << 20U);
        const support::CDialogAnswers answers(wxID_OK);
        const std::string printed = Press("ID_BTN_RUN_GA");
        EXPECT_THAT(printed, HasSubstr("Thread Run returned: "));
        EXPECT_THAT(printed, testing::Not(HasSubstr("Thread Run returned: 0\n")));
        wxLog::FlushActive();
        EXPECT_TRUE(answers.Messages().empty()) << answers.Messages()[0];
    }
    EXPECT_THAT(Press("ID_BTN_RUN_GA"), HasSubstr("Thread Run returned: 0\n"));
    AwaitEndOfRun();
    EXPECT_EQ(m_pFrame->m_pBestPlotter->m_Points.size(), 2U);
}

/// A receiver without room for notices.
class CFullHandler : public wxEvtHandler {
public:
    void QueueEvent(wxEvent* pEvent) override {
        delete pEvent;
        throw std::bad_alloc();
    }
};

TEST_F(PolyThread, EndsTheSearchAndNotTheProgramWhenMemoryRunsOut) {
    CFullHandler handler;
    m_pFrame->m_Container.m_pEventHandler = &handler;
    const std::string printed = PrintedBy([this] {
        const auto pThread = MakeThread();
        pThread->Create();
        pThread->Run();
        pThread->Wait();
    });
    EXPECT_EQ(printed, "Inside the entry code\nThe search has ended early: std::bad_alloc\nThread Exited\n");
}

}  // namespace

}  // namespace nestrix
