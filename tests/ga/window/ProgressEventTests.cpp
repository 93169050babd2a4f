#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <wx/event.h>

#include <atomic>
#include <chrono>
#include <ctime>
#include <functional>
#include <numeric>
#include <thread>

#include "ga/CContainer.h"
#include "tests/display/EventPump.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

// The search as the window knows it: its notices in the toolkit's own queue.

namespace {

using namespace std::chrono_literals;
using support::PrintedBy;
using support::PumpUntil;

/// Keeps the notices that the toolkit delivers, and looks at each when it is posted, on the search's thread.
class CReceiver : public wxEvtHandler {
public:
    CReceiver() {
        Bind(
            wxEVT_COMMAND_MENU_SELECTED,
            [this](wxCommandEvent& event) {
                m_Delivered.push_back(event.GetInt());
                m_nDelivered = static_cast<int>(m_Delivered.size());
            },
            ID_GENERATION_DONE);
    }

    void QueueEvent(wxEvent* pEvent) override {
        m_OnPost(*pEvent);
        const int nWaiting = ++m_nPosted - m_nDelivered;
        m_nMostWaiting = std::max(m_nMostWaiting.load(), nWaiting);
        wxEvtHandler::QueueEvent(pEvent);
    }

    std::function<void(const wxEvent&)> m_OnPost = [](const wxEvent&) {};
    std::vector<int> m_Delivered;
    std::atomic<int> m_nDelivered = 0;
    std::atomic<int> m_nPosted = 0;
    std::atomic<int> m_nMostWaiting = 0;
};

std::vector<int> UpTo(int nLast) {
    std::vector<int> numbers(static_cast<size_t>(nLast) + 1);
    std::iota(numbers.begin(), numbers.end(), 0);
    return numbers;
}

class ProgressEvent : public testing::Test {
protected:
    void SetUp() override {
        m_Container.m_Polygons = {support::MakeSquare(10), support::MakeRectangle(30, 20),
                                  support::MakeSquare(25)};
        m_Container.m_pEventHandler = &m_Receiver;
    }

    void TearDown() override {
        m_Container.m_bStop = true;
        if (m_Thread.joinable()) {
            m_Thread.join();
        }
        m_Receiver.DeletePendingEvents();
    }

    void RunOnAThread(int nPopulation, int nGenerations) {
        m_Thread = std::thread([this, nPopulation, nGenerations] {
            m_Container.RunGA(nPopulation, nGenerations);
            m_bReturned = true;
        });
    }

    const support::CStdoutCapture m_Silence;  ///< of the search's own lines
    CReceiver m_Receiver;
    CContainer m_Container;
    std::thread m_Thread;
    std::atomic<bool> m_bReturned = false;
};

TEST_F(ProgressEvent, IsAMenuCommandWithTheIdTwoHundredAndTheGenerationAsItsInteger) {
    std::vector<int> integers;
    m_Receiver.m_OnPost = [&](const wxEvent& event) {
        const auto* pCommand = dynamic_cast<const wxCommandEvent*>(&event);
        ASSERT_NE(pCommand, nullptr);
        EXPECT_EQ(event.GetEventType(), wxEVT_COMMAND_MENU_SELECTED);
        EXPECT_EQ(event.GetId(), 200);
        integers.push_back(pCommand->GetInt());
    };
    RunOnAThread(4, 5);
    m_Thread.join();
    EXPECT_EQ(integers, UpTo(5));
}

TEST_F(ProgressEvent, IsDeliveredOnTheWindowsThreadInOrder) {
    RunOnAThread(4, 30);
    EXPECT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered == 31; }));
    EXPECT_EQ(m_Receiver.m_Delivered, UpTo(30));
}

TEST_F(ProgressEvent, IsNeverLostHoweverFastTheyCome) {
    RunOnAThread(2, 20'000);
    EXPECT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered == 20'001; }, 60s));
    EXPECT_EQ(m_Receiver.m_Delivered, UpTo(20'000));
}

TEST_F(ProgressEvent, NeverFillsTheQueueOfAReceiverThatKeepsHandling) {
    RunOnAThread(2, 20'000);
    EXPECT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered == 20'001; }, 60s));
    EXPECT_LE(m_Receiver.m_nMostWaiting, 64);
}

TEST_F(ProgressEvent, IsPostedAfterTheStatisticsWereWritten) {
    m_Receiver.m_OnPost = [this](const wxEvent&) {
        float fTotal = 0.0F;
        for (const CChromosome& chromosome : m_Container.m_Population) {
            fTotal += chromosome.m_fFitness;
        }
        EXPECT_EQ(m_Container.m_fAverageFitness, fTotal / 6.0F);
    };
    RunOnAThread(6, 10);
    m_Thread.join();
    EXPECT_EQ(m_Receiver.m_nPosted, 11);
}

TEST_F(ProgressEvent, IsPostedBeforeTheGenerationsLines) {
    m_Receiver.m_OnPost = [](const wxEvent&) { std::puts("posted"); };
    const std::string printed = PrintedBy([this] { m_Container.RunGA(2, 1); });
    EXPECT_THAT(printed,
                testing::StartsWith("posted\nNewly Created 2\nposted\nGeneration 1 has been created"));
}

TEST_F(ProgressEvent, WithoutAReceiverIsNotPostedAndTheSearchRunsToItsEnd) {
    m_Container.m_pEventHandler = nullptr;
    m_Container.RunGA(3, 4);
    EXPECT_EQ(m_Receiver.m_nPosted, 0);
    EXPECT_EQ(m_Container.PopulationSize(), 3);
}

TEST_F(ProgressEvent, OfZeroGenerationsIsOneForTheFirst) {
    m_Container.RunGA(3, 0);
    EXPECT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered == 1; }));
    EXPECT_EQ(m_Receiver.m_Delivered, UpTo(0));
}

TEST_F(ProgressEvent, ToAReceiverThatHandlesNothingDoesNotHoldTheSearchForEver) {
    RunOnAThread(2, 500);
    m_Thread.join();  // nobody pumps meanwhile
    EXPECT_TRUE(m_bReturned);
    EXPECT_EQ(m_Receiver.m_nPosted, 501);
    EXPECT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered == 501; }));
    EXPECT_EQ(m_Receiver.m_Delivered, UpTo(500));
}

TEST_F(ProgressEvent, WaitsAgainForAReceiverThatStirsAfterItCountedAsGone) {
    m_Receiver.m_OnPost = [](const wxEvent&) { std::this_thread::sleep_for(100us); };
    RunOnAThread(2, 1'000'000'000);
    const auto deadline = std::chrono::steady_clock::now() + 90s;
    while (m_Receiver.m_nPosted < 1000 && std::chrono::steady_clock::now() < deadline) {
        std::this_thread::sleep_for(10ms);  // nobody pumps: the search gives its receiver up and goes on
    }
    ASSERT_GE(m_Receiver.m_nPosted, 1000);
    ASSERT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered >= 1000; }));
    m_Receiver.m_nMostWaiting = 0;
    const int nDelivered = m_Receiver.m_nDelivered;
    ASSERT_TRUE(PumpUntil([this, nDelivered] { return m_Receiver.m_nDelivered >= nDelivered + 1000; }));
    EXPECT_LT(m_Receiver.m_nMostWaiting, 1000) << "the backlog only grew";
}

TEST_F(ProgressEvent, OfASearchOnTheWindowsOwnThreadNeverWaitsForIt) {
    const auto start = std::chrono::steady_clock::now();
    m_Container.RunGA(2, 500);
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1500ms) << "it waited for itself";
    EXPECT_TRUE(PumpUntil([this] { return m_Receiver.m_nDelivered == 501; }));
}

TEST_F(ProgressEvent, ThatWaitsForItsReceiverGivesWayToARequestToStop) {
    RunOnAThread(2, 1'000'000'000);
    while (m_Receiver.m_nPosted < 64) {
        std::this_thread::yield();
    }
    std::this_thread::sleep_for(20ms);  // the search now waits; its patience lasts far longer
    const auto start = std::chrono::steady_clock::now();
    m_Container.m_bStop = true;
    m_Thread.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
}

TEST_F(ProgressEvent, IsNotPostedAnyMoreByAnAbandonedSearchThatWaitsForItsReceiver) {
    RunOnAThread(2, 1'000'000'000);
    while (m_Receiver.m_nPosted < 64) {
        std::this_thread::yield();
    }
    std::this_thread::sleep_for(20ms);
    const auto start = std::chrono::steady_clock::now();
    m_Container.m_bAbandoned = true;
    m_Thread.join();
    EXPECT_LT(std::chrono::steady_clock::now() - start, 1s);
    EXPECT_EQ(m_Receiver.m_nPosted, 64);
}

/// Ends a search at its first notice.
TEST_F(ProgressEvent, ComesFromARunThatTakesAnEarlierRequestToStopBack) {
    m_Container.m_bStop = true;
    m_Container.RunGA(4, 2);
    EXPECT_EQ(m_Receiver.m_nPosted, 3);
    EXPECT_FALSE(m_Container.m_bStop);
}

TEST_F(ProgressEvent, HandledBeforeARequestToStopIsTheLastOne) {
    m_Receiver.m_OnPost = [this](const wxEvent&) { m_Container.m_bStop = true; };
    m_Container.RunGA(4, 100);
    EXPECT_EQ(m_Receiver.m_nPosted, 1);
}

TEST_F(ProgressEvent, ComesFromASearchThatIsSeededWithTheClock) {
    m_Container.m_pEventHandler = nullptr;
    const std::time_t before = std::time(nullptr);
    const std::string printed = PrintedBy([this] { m_Container.RunGA(6, 3); });
    const std::time_t after = std::time(nullptr);
    bool bFound = false;
    for (std::time_t now = before; now <= after; ++now) {
        CContainer again;
        again.m_Polygons = m_Container.m_Polygons;
        support::CNobody nobody;
        bFound = bFound ||
                 printed == PrintedBy([&] { again.RunSearch(6, 3, static_cast<unsigned int>(now), nobody); });
    }
    EXPECT_TRUE(bFound);
}

}  // namespace

}  // namespace nestrix
