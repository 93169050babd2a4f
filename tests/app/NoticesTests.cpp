#include <gmock/gmock.h>

#include <atomic>
#include <thread>

#include "display/CPolyDisplay.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/EventPump.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/RandomCases.h"

namespace nestrix {

namespace {

using support::FrameFixture;

/// The least work a generation can be, so that notices come as fast as they can.
constexpr int POPULATION = 2;

class Notices : public FrameFixture {
protected:
    void SetUp() override {
        FrameFixture::SetUp();
        ListSquares(2);
    }
};

TEST_F(Notices, AreAllHandledHoweverFastTheyCome) {
    const int nGenerations = support::RandomCases(100000);
    SetRun(POPULATION, nGenerations);
    (void)support::PrintedBy([this] {
        wxCommandEvent event(wxEVT_BUTTON, XRCID("ID_BTN_RUN_GA"));
        m_pFrame->ProcessWindowEvent(event);
        AwaitEndOfRun();
    });
    const auto& points = m_pFrame->m_pBestPlotter->m_Points;
    ASSERT_EQ(points.size(), static_cast<size_t>(nGenerations) + 1);
    for (size_t i = 0; i < points.size(); ++i) {
        ASSERT_EQ(points[i].x, static_cast<float>(i));
    }
    EXPECT_EQ(m_pFrame->m_pGauge->GetValue(), m_pFrame->m_pGauge->GetRange());
    EXPECT_EQ(Text("ID_TXT_AVG_FITNESS"),
              std::to_string(static_cast<float>(m_pFrame->m_Container.m_fAverageFitness)));
    EXPECT_EQ(Text("ID_TXT_BEST_FITNESS"),
              std::to_string(static_cast<float>(m_pFrame->m_Container.m_fBestFitness)));
    EXPECT_EQ(Text("ID_TXT_TOTAL_POP"), "2");
}

TEST_F(Notices, LeaveTheStatisticsOfTheirGenerationWithTheContainerUntilTheyAreHandled) {
    CContainer container;
    container.m_Polygons = {support::MakeSquare(10.0F), support::MakeRectangle(30.0F, 20.0F)};
    wxEvtHandler handler;
    container.m_pEventHandler = &handler;
    (void)support::PrintedBy([&container] { container.RunGA(3, 5); });
    constexpr float NOW = 1e30F;
    container.m_fAverageFitness = NOW;
    container.m_fBestFitness = NOW;
    EXPECT_EQ(container.TakeStatistics(1).m_fAverageFitness, NOW) << "not this one's turn";
    for (int i = 0; i <= 5; ++i) {
        const SGenerationStatistics statistics = container.TakeStatistics(i);
        EXPECT_EQ(statistics.m_nGeneration, i);
        EXPECT_LT(statistics.m_fAverageFitness, NOW);
        EXPECT_LT(statistics.m_fBestFitness, NOW);
    }
    EXPECT_EQ(container.TakeStatistics(5).m_fAverageFitness, NOW) << "taken already";
    EXPECT_EQ(container.TakeStatistics(5).m_fBestFitness, NOW);
}

TEST_F(Notices, OfAnEarlierRunLeaveNothingToTheNext) {
    CContainer container;
    wxEvtHandler handler;
    container.m_pEventHandler = &handler;
    // More than there is room for.
    (void)support::PrintedBy([&container] { container.RunGA(2, 1000); });
    container.Clear();
    container.m_fAverageFitness = -1.0F;
    EXPECT_EQ(container.TakeStatistics(0).m_fAverageFitness, -1.0F);
    container.m_Polygons = {support::MakeSquare(10.0F)};
    (void)support::PrintedBy([&container] { container.RunGA(2, 0); });
    container.m_fAverageFitness = -1.0F;
    EXPECT_EQ(container.TakeStatistics(0).m_fAverageFitness, 0.0F);
}

/// Counts the notices it hears.
class CCountingHandler : public wxEvtHandler {
public:
    CCountingHandler() {
        Bind(
            wxEVT_MENU, [this](wxCommandEvent&) { ++m_nHeard; }, ID_GENERATION_DONE);
    }
    int m_nHeard = 0;
};

TEST_F(Notices, DoNotStallASearchOnTheWindowsOwnThread) {
    CCountingHandler handler;
    CContainer container;
    container.m_pEventHandler = &handler;
    (void)support::PrintedBy([&container] { container.RunGA(POPULATION, 1000); });
    support::PumpPending();
    EXPECT_EQ(handler.m_nHeard, 1001);
}

TEST_F(Notices, DoNotStallASearchWhoseReceiverHandlesNothing) {
    CCountingHandler handler;
    CContainer container;
    container.m_pEventHandler = &handler;
    const std::string printed = support::PrintedBy([&container] {
        std::thread search([&container] { container.RunGA(POPULATION, 1000); });
        search.join();
    });
    EXPECT_THAT(printed, testing::HasSubstr("Generation 1000 has been created"));
    // Not one is lost: they wait for the day that the receiver wakes up.
    support::PumpPending();
    EXPECT_EQ(handler.m_nHeard, 1001);
}

TEST_F(Notices, DoNotKeepASearchFromStoppingWhoseReceiverHandlesNothing) {
    CCountingHandler handler;
    CContainer container;
    container.m_pEventHandler = &handler;
    std::atomic<bool> bEnded = false;
    const auto stopped = [&] {
        std::thread search([&] {
            container.RunGA(POPULATION, 1000000);
            bEnded = true;
        });
        std::this_thread::sleep_for(std::chrono::milliseconds(100));
        const auto begin = std::chrono::steady_clock::now();
        container.m_bStop = true;
        search.join();
        return std::chrono::steady_clock::now() - begin;
    };
    (void)support::PrintedBy([&] { EXPECT_LT(stopped(), std::chrono::milliseconds(300)); });
    EXPECT_TRUE(bEnded);
}

TEST_F(Notices, ComeNoFurtherThanTheWindowThatCloses) {
    SetRun(POPULATION, 1000000);
    Press("ID_BTN_RUN_GA");
    ASSERT_TRUE(support::PumpUntil([this] { return m_pFrame->m_pBestPlotter->m_Points.size() > 1000; }));
    (void)support::PrintedBy([this] { CloseFrame(); });
    support::PumpPending();
}

}  // namespace

}  // namespace nestrix
