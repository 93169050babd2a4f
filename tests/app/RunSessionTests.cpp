#include "tests/app/SessionFixture.h"

namespace nestrix {

namespace {

using support::Await;
using support::BLACK;
using support::CScreenshot;
using support::PressKeys;
using support::SessionFixture;

/// Runs, stops and closes, by hand.
class RunSession : public SessionFixture {
protected:
    void SetUp() override {
        for (const char* pName : {"a.pol", "b.pol", "c.pol"}) {
            AddSquare(pName, 10);
        }
        Start();
        ListWholeFolder();
    }

    void StartLongRun() {
        SetRun(100, 1000000);
        ClickOn("ID_BTN_RUN_GA");
        Require(AwaitOutput("Generation 3 has been created with 100 many individuals\n"), "no run");
    }
};

TEST_F(RunSession, EndsByItself) {
    SetRun(10, 5);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    EXPECT_EQ(CountOutput("Generation 5 has been created with 10 many individuals\n"), 1);
    CloseWindow();
}

TEST_F(RunSession, RefusesASecondRunMeanwhile) {
    StartLongRun();
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Algorithm thread is already running\n"));
    EXPECT_EQ(CountOutput("Thread Run returned"), 1);
    ClickOn("ID_BTN_STOP");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    CloseWindow();
}

TEST_F(RunSession, StopsAtTheClickOfAButton) {
    StartLongRun();
    ClickOn("ID_BTN_STOP");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 1, std::chrono::seconds(10)));
    CloseWindow();
}

TEST_F(RunSession, StopsNothingWithoutARun) {
    ClickOn("ID_BTN_STOP");
    ClickOn("ID_BTN_SHOW_RESULT");
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is 0.000000\n"));
    EXPECT_EQ(Output(), "Best Chromosome so far is 0.000000\n");
    CloseWindow();
}

TEST_F(RunSession, RunsTwiceInARow) {
    SetRun(10, 5);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    SetRun(12, 3);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 2));
    EXPECT_EQ(CountOutput("Generation 3 has been created with 12 many individuals\n"), 1);
    CloseWindow();
}

TEST_F(RunSession, EndsTheProgramCleanlyWhenTheWindowIsClosedMeanwhile) {
    StartLongRun();
    CloseWindow();
    EXPECT_EQ(CountOutput("Thread Exited\n"), 1);
}

TEST_F(RunSession, PassesOverTheCanvasesOnTab) {
    // From the first of the three fields over the other two and round to the first button.
    PressKeys({"alt+v", "Tab", "Tab", "Tab", "space"});
    ASSERT_TRUE(AwaitOutput("Best Chromosome so far is 0.000000\n"));
    CloseWindow();
}

TEST_F(RunSession, StaysAliveUnderAFloodOfNotices) {
    ClickOn("ID_BTN_CLEAR");
    ListFile(m_Folder.PathOf("a.pol"));
    ListFile(m_Folder.PathOf("b.pol"));
    SetRun(2, 100000);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Generation 300 has been created"));
    // The plots move on and on.
    for (int i = 0; i < 3; ++i) {
        const CScreenshot before;
        ASSERT_TRUE(Await([&] { return CScreenshot().Differs(before, Place("ID_BEST_PLOTTER")); }));
    }
    ClickOn("ID_BTN_SHOW_RESULT");
    const auto begin = std::chrono::steady_clock::now();
    ClickOn("ID_BTN_STOP");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n", 1, std::chrono::seconds(5)));
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::milliseconds(500));
    CloseWindow();
}

}  // namespace

}  // namespace nestrix
