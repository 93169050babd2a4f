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
    void SetUp() override { OutputOf({NESTRIX_CMAKE, "--install", NESTRIX_BUILD, "--prefix", Prefix()}); }

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

TEST_F(InstalledSession, BringsADesktopEntryAndAnIcon) {
    EXPECT_TRUE(std::filesystem::exists(m_Prefix.PathOf("share/applications/nestrix.desktop")));
    EXPECT_TRUE(std::filesystem::exists(m_Prefix.PathOf("share/icons/hicolor/scalable/apps/nestrix.svg")));
}

}  // namespace

}  // namespace nestrix
