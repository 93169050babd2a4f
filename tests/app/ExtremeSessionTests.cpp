#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>

#include "tests/app/SessionFixture.h"

namespace nestrix {

namespace {

using support::Await;
using support::CScreenshot;
using support::SessionFixture;

/// As little as there can be, far too much, and what is broken.
class ExtremeSession : public SessionFixture {
protected:
    void Run(int nPopulation, int nGenerations) {
        SetRun(nPopulation, nGenerations);
        const int nRuns = CountOutput("Thread Exited\n");
        ClickOn("ID_BTN_RUN_GA");
        Require(AwaitOutput("Thread Exited\n", nRuns + 1, std::chrono::minutes(4)), "the run does not end");
        EXPECT_EQ(CountOutput("The search has ended early"), 0);
    }

    /// Shows the result. @return its fitness.
    float ShowResult() {
        const int nResults = CountOutput("Best Chromosome so far is ");
        ClickOn("ID_BTN_SHOW_RESULT");
        Require(AwaitOutput("Best Chromosome so far is ", nResults + 1), "no result is shown");
        return LastNumberAfter("Best Chromosome so far is ");
    }
};

TEST_F(ExtremeSession, PacksWhatIsLeftOfAListOfBrokenFiles) {
    AddSquare("good.pol", 20);
    const std::string missing = m_Folder.Write("missing.pol", "");
    for (const char* pContent : {"", "no numbers at all", "2147483647", "4\n0,0\n20,"}) {
        (void)m_Folder.Write("broken" + std::to_string(std::string(pContent).size()) + ".pol", pContent);
    }
    Start();
    ListWholeFolder();
    std::filesystem::remove(missing);
    Run(10, 5);
    EXPECT_EQ(CountOutput("Couldn't Load Polygon"), 2) << "once by the search, once by the window";
    (void)ShowResult();
    CloseWindow();
}

TEST_F(ExtremeSession, TakesAListOfBadFilesOnly) {
    std::vector<std::string> missing;
    for (const char* pName : {"one.pol", "two.pol"}) {
        missing.push_back(m_Folder.Write(pName, ""));
    }
    Start();
    ListWholeFolder();
    std::ranges::for_each(missing, [](const std::string& path) { std::filesystem::remove(path); });
    Run(10, 5);
    EXPECT_EQ(CountOutput("Couldn't Load Polygon"), 4);
    EXPECT_EQ(ShowResult(), 0.0F);
    CloseWindow();
}

TEST_F(ExtremeSession, PacksOnePolygonAndThenNone) {
    StartWithSquares(1, 50);
    Run(5, 5);
    const CScreenshot nothing;
    // It lies on the floor, so it saves nothing of its own height.
    EXPECT_EQ(ShowResult(), 0.0F);
    ASSERT_TRUE(Await([&] { return CScreenshot().Differs(nothing, Place("ID_DISPLAY")); }));
    ClickOn("ID_BTN_CLEAR");
    ClickOn("ID_BTN_RUN_GA");
    (void)ShowResult();
    EXPECT_TRUE(Await([&] { return !CScreenshot().Differs(nothing, Place("ID_DISPLAY")); }));
    EXPECT_EQ(CountOutput("Thread Exited\n"), 1) << "there was nothing to run";
    CloseWindow();
}

TEST_F(ExtremeSession, BreedsAPopulationOfOneAndThenNoGeneration) {
    StartWithSquares(2, 50);
    Run(1, 20);
    EXPECT_EQ(CountOutput("Generation 20 has been created with 1 many individuals\n"), 1);
    (void)ShowResult();
    Run(5, 0);
    EXPECT_EQ(CountOutput(" has been created with "), 20);
    (void)ShowResult();
    CloseWindow();
}

TEST_F(ExtremeSession, PacksAThousandPolygons) {
    StartWithSquares(1000, 12);
    Run(20, 3);
    EXPECT_EQ(CountOutput("Couldn't"), 0);
    // Some end side by side with the right wall, where sides in line hold them at the start: above twice the
    // height of all thousand in one pile.
    EXPECT_LE(ShowResult(), -12000.0F);
    CloseWindow();
}

TEST_F(ExtremeSession, SearchesOnWithNoRoomForItsOutput) {
    m_OutputFile = "/dev/full";
    StartWithSquares(3, 30);
    SetRun(10, 50);
    ClickOn("ID_BTN_RUN_GA");
    EXPECT_TRUE(Await([&] { return IsGaugeFull(); }));
    const CScreenshot before;
    ClickOn("ID_BTN_SHOW_RESULT");
    EXPECT_TRUE(Await([&] { return CScreenshot().Differs(before, Place("ID_DISPLAY")); }));
    CloseWindow();
}

TEST_F(ExtremeSession, SearchesOnWhenNobodyReadsItsOutputAnyLonger) {
    m_OutputFile = m_Records.PathOf("pipe");
    ASSERT_EQ(mkfifo(m_OutputFile.c_str(), 0600), 0);
    const int nReader = open(m_OutputFile.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC);
    StartWithSquares(3, 30);
    SetRun(10, 1000000);
    ClickOn("ID_BTN_RUN_GA");
    char firstByte = '\0';
    ASSERT_TRUE(Await([&] { return read(nReader, &firstByte, 1) == 1; }));
    close(nReader);
    for (int i = 0; i < 3; ++i) {
        const CScreenshot before;
        ASSERT_TRUE(Await([&] { return CScreenshot().Differs(before, Place("ID_BEST_PLOTTER")); }));
    }
    CloseWindow();
}

}  // namespace

}  // namespace nestrix
