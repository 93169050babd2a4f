#include <algorithm>
#include <cstdlib>
#include <random>

#include "tests/app/SessionFixture.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix {

namespace {

using support::Await;
using support::Click;
using support::CScreenshot;
using support::SessionFixture;

/// How much of everything: 1 in an ordinary test, more when somebody has the time.
int Factor() {
    const char* const pFactor = std::getenv("NESTRIX_CASES_FACTOR");
    return pFactor != nullptr ? std::max(1, std::atoi(pFactor)) : 1;
}

/// More than a person would do, faster.
class StressSession : public SessionFixture {
protected:
    void SleepUpTo(int nMilliseconds) {
        std::this_thread::sleep_for(
            std::chrono::milliseconds(m_Random() % static_cast<unsigned int>(nMilliseconds)));
    }

    static constexpr int SHOWN_AT_A_TIME = 20;

    /// In turn, the slider a little further every time.
    void DragAndShowResults(bool bRight) {
        const wxRect slider = Place("ID_SLIDER_MUTATION");
        const auto at = [&](int nStep) {
            return slider.GetPosition() +
                   wxPoint(20 + 3 * (bRight ? nStep : SHOWN_AT_A_TIME - nStep), slider.height / 2);
        };
        for (int nStep = 0; nStep < SHOWN_AT_A_TIME; ++nStep) {
            support::Drag(at(nStep), at(nStep + 1));
            ClickOn("ID_BTN_SHOW_RESULT");
        }
    }

    /// Whether the list has a line.
    [[nodiscard]] bool ListsAnything() const {
        wxRect list = Place("ID_LST_POLYGON");
        list.Deflate(4);
        const CScreenshot now;
        const int nAll = list.width * list.height;
        return now.Count(now.At(list.GetBottomRight()), list) != nAll;
    }

    void ClickOnFirstLine() { Click(Place("ID_LST_POLYGON").GetPosition() + wxPoint(20, 10)); }

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
    ClickOn("ID_BTN_CLEAR");
    const int nRounds = 2 * Factor();
    for (int i = 0; i < nRounds; ++i) {
        const CScreenshot before;
        DragAndShowResults(i % 2 == 0);
        ASSERT_TRUE(
            Await([&] { return CScreenshot().Differs(before, Place("ID_TXT_MUTATION_PROBABILITY")); }));
        ListFile(m_Folder.PathOf("square0.pol"));
        ASSERT_TRUE(Await([&] { return ListsAnything(); })) << "round " << i;
        if (i % 3 == 0) {
            ClickOn("ID_BTN_CLEAR");
        } else {
            ClickOnFirstLine();
            ClickOn("ID_BTN_REMOVE");
        }
        ASSERT_TRUE(Await([&] { return !ListsAnything(); })) << "round " << i;
    }
    ClickOn("ID_BTN_STOP");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    // The search says how good the best is once a generation, and so does every look at the result.
    const auto countResults = [&] {
        return CountOutput("Best Chromosome so far is ") - CountOutput(" has been created with ");
    };
    EXPECT_TRUE(Await([&] { return countResults() == SHOWN_AT_A_TIME * nRounds; })) << countResults();
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
    const int nGenerations = support::UNDER_SANITIZER ? 25000 : 100000;
    StartWithSquares(2, 10);
    SetRun(2, nGenerations);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 1, std::chrono::minutes(4)));
    EXPECT_EQ(CountOutput("Newly Created 2\n"), nGenerations);
    EXPECT_TRUE(Await([&] { return IsGaugeFull(); }));
    CloseWindow();
}

}  // namespace

}  // namespace nestrix
