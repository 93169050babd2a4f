#include <cstdlib>
#include <random>

#include "SessionFixture.h"

namespace {

using support::Await;
using support::CScreenshot;
using support::Drag;
using support::PressKeys;
using support::SessionFixture;

/// How much of everything: 1 in an ordinary test, more when somebody has the time.
int Factor() {
    const char* const pFactor = std::getenv("NESTRIX_CASES_FACTOR");
    return pFactor != nullptr ? std::atoi(pFactor) : 1;
}

/// More than a person would do, faster.
class StressSession : public SessionFixture {
protected:
    void StartWithSquares(int nCount, int nSide) {
        for (int i = 0; i < nCount; ++i) {
            AddSquare("square" + std::to_string(i) + ".pol", nSide);
        }
        Start();
        ListWholeFolder();
    }

    void SleepUpTo(int nMilliseconds) {
        std::this_thread::sleep_for(
            std::chrono::milliseconds(m_Random() % static_cast<unsigned int>(nMilliseconds)));
    }

    void DragMutation(int nFrom, int nTo) {
        const wxRect slider = Place("ID_SLIDER_MUTATION");
        const wxPoint left = slider.GetPosition() + wxPoint(0, slider.height / 2);
        Drag(left + wxPoint(nFrom, 0), left + wxPoint(nTo, 0));
    }

    std::mt19937 m_Random{1};
};

TEST_F(StressSession, RunsAndStopsAtRandomMoments) {
    StartWithSquares(20, 30);
    SetRun(50, 1000000);
    for (int i = 1; i <= 10 * Factor(); ++i) {
        ClickOn("ID_BTN_RUN_GA");
        SleepUpTo(150);
        ClickOn("ID_BTN_STOP");
        ASSERT_TRUE(Await([&] { return CountOutput("Thread Run returned: 0\n") >= i; })) << "run " << i;
        ASSERT_TRUE(AwaitOutput("Thread Exited\n", CountOutput("Inside the entry code\n"))) << "run " << i;
    }
    CloseWindow();
}

TEST_F(StressSession, ShowsResultsAndTakesEveryCommandDuringARun) {
    StartWithSquares(20, 30);
    SetRun(50, 1000000);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Generation 3 has been created"));
    for (int i = 1; i <= 5 * Factor(); ++i) {
        DragMutation(20 + i % 50, 70 - i % 50);
        for (int nShown = 0; nShown < 10; ++nShown) {
            ClickOn("ID_BTN_SHOW_RESULT");
        }
        ClickOn(i % 2 == 0 ? "ID_BTN_REMOVE" : "ID_BTN_CLEAR");
    }
    ListFile(m_Folder.PathOf("square0.pol"));
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(Await([&] { return CountOutput("Best Chromosome so far is") > 50 * Factor(); }));
    ClickOn("ID_BTN_STOP");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    CloseWindow();
}

TEST_F(StressSession, EndsCleanlyHoweverOftenTheWindowIsClosedDuringARun) {
    StartWithSquares(20, 30);
    for (int i = 0; i < 2 * Factor(); ++i) {
        if (i > 0) {
            support::ParkPointer();
            Start();
            ListWholeFolder();
        }
        SetRun(50, 1000000);
        ClickOn("ID_BTN_RUN_GA");
        ASSERT_TRUE(AwaitOutput("Inside the entry code\n"));
        SleepUpTo(100);
        CloseWindow();
    }
}

TEST_F(StressSession, LosesNoNoticeOfAFlood) {
    constexpr int GENERATIONS = 100000;
    StartWithSquares(2, 10);
    SetRun(2, GENERATIONS);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 1, std::chrono::seconds(90)));
    EXPECT_EQ(CountOutput("Newly Created 2\n"), GENERATIONS);
    // The gauge is full to its end once the last notice has been handled.
    const wxRect gauge = Place("ID_GAUGE");
    const wxRect end(gauge.GetRight() - 12, gauge.y, 10, gauge.height);
    const wxRect begin(gauge.x + 3, gauge.y, 10, gauge.height);
    const auto isBlue = [](const support::SColour& c) { return c.m_nBlue > c.m_nRed + 60; };
    const auto hasBar = [&](const wxRect& area) {
        const CScreenshot now;
        for (int y = area.y; y < area.GetBottom(); ++y) {
            if (isBlue(now.At({area.x + area.width / 2, y}))) {
                return true;
            }
        }
        return false;
    };
    EXPECT_TRUE(Await([&] { return hasBar(begin) && hasBar(end); }));
    CloseWindow();
}

TEST_F(StressSession, PacksWhatIsLeftOfAListOfBrokenFiles) {
    AddSquare("good.pol", 20);
    const std::string missing = m_Folder.Write("missing.pol", "");
    for (const char* pContent : {"", "no numbers at all", "2147483647", "4\n0,0\n20,"}) {
        (void)m_Folder.Write("broken" + std::to_string(std::string(pContent).size()) + ".pol", pContent);
    }
    Start();
    ListWholeFolder();
    std::filesystem::remove(missing);
    SetRun(10, 5);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    EXPECT_EQ(CountOutput("Couldn't Load Polygon"), 2) << "once by the search, once by the window";
    ClickOn("ID_BTN_CLEAR");
    ClickOn("ID_BTN_RUN_GA");
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is", 6));
    CloseWindow();
}

TEST_F(StressSession, TakesAPopulationOfOneAndNoGenerations) {
    StartWithSquares(1, 50);
    SetRun(1, 20);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    SetRun(5, 0);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 2));
    ClickOn("ID_BTN_SHOW_RESULT");
    CloseWindow();
}

TEST_F(StressSession, PacksAThousandPolygons) {
    StartWithSquares(1000, 12);
    SetRun(20, 3);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 1, std::chrono::seconds(30)));
    EXPECT_EQ(CountOutput("Couldn't"), 0);
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is", 4));
    CloseWindow();
}

}  // namespace
