#include "tests/app/SessionFixture.h"

namespace nestrix {

namespace {

using support::CScreenshot;
using support::OutputOf;
using support::SessionFixture;
using support::WHITE;

/// The program as it is installed, into a folder of the test's own.
class InstalledSession : public SessionFixture {
protected:
    void SetUp() override {
        OutputOf({NESTRIX_CMAKE, "--install", NESTRIX_BUILD, "--component", "window", "--prefix", Prefix()});
    }

    [[nodiscard]] std::string Prefix() const { return m_Prefix.Path(); }

    support::CTemporaryFolder m_Prefix;
};

TEST_F(InstalledSession, FindsFormAndFontWhereverItIsStarted) {
    std::filesystem::remove(m_Folder.PathOf("Nestrix_wdr.xrc"));
    std::filesystem::remove(m_Folder.PathOf("arial.ttf"));
    m_Command = m_Prefix.PathOf("bin/nestrix");
    Start();
    const wxRect canvas = Place("ID_DISPLAY");
    EXPECT_LT(CScreenshot().Count(WHITE, wxRect(canvas.x, canvas.y, 28, 560)), 28 * 560) << "no labels";
    ListFile(m_Prefix.PathOf("share/nestrix/samples/squares/1-square-90.pol"));
    SetRun(2, 1);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    EXPECT_EQ(CountOutput("Couldn't Load Polygon"), 0);
    CloseWindow();
}

TEST_F(InstalledSession, MayBeMovedAsAWhole) {
    const support::CTemporaryFolder elsewhere;
    std::filesystem::rename(m_Prefix.PathOf("bin"), elsewhere.PathOf("bin"));
    std::filesystem::rename(m_Prefix.PathOf("share"), elsewhere.PathOf("share"));
    std::filesystem::rename(m_Prefix.PathOf("libexec"), elsewhere.PathOf("libexec"));
    m_Command = elsewhere.PathOf("bin/nestrix");
    Start();
    CloseWindow();
}

TEST_F(InstalledSession, BringsWhatADesktopWantsToKnow) {
    for (char const* const pFile :
         {"applications/nestrix.desktop", "icons/hicolor/scalable/apps/nestrix.svg",
          "icons/hicolor/16x16/apps/nestrix.png", "icons/hicolor/256x256/apps/nestrix.png",
          "mime/packages/nestrix.xml", "metainfo/io.nestrix.nestrix.metainfo.xml", "man/man1/nestrix.1.gz"}) {
        EXPECT_TRUE(std::filesystem::exists(m_Prefix.PathOf(std::string("share/") + pFile))) << pFile;
    }
}

TEST_F(InstalledSession, TellsItsVersionAndItsOptionsWithoutAWindow) {
    const std::string launcher = m_Prefix.PathOf("bin/nestrix");
    EXPECT_THAT(OutputOf({launcher, "--version"}), testing::MatchesRegex("nestrix [0-9]+\\.[0-9]+\n"));
    EXPECT_THAT(OutputOf({launcher, "--help"}), testing::HasSubstr("--display="));
}

}  // namespace

}  // namespace nestrix
