#include "CCommaLocale.h"
#include "SessionFixture.h"

namespace {

using support::Await;
using support::AwaitWindow;
using support::BLACK;
using support::CCommaLocale;
using support::CScreenshot;
using support::IsWindowOpen;
using support::PressKeys;
using support::SessionFixture;
using support::WHITE;

/// What the program makes of what it finds around it.
class SurroundingsSession : public SessionFixture {
protected:
    void Replace(const std::string& name, const char* pContent) {
        std::filesystem::remove(m_Folder.PathOf(name));
        if (pContent != nullptr) {
            (void)m_Folder.Write(name, pContent);
        }
    }

    void ExpectOneMessageBox() {
        Launch();
        ASSERT_TRUE(AwaitWindow("Error"));
        PressKeys({"Return"});
        ASSERT_TRUE(AwaitWindow("Nestrix using GA"));
        EXPECT_FALSE(IsWindowOpen("Error"));
        ASSERT_TRUE(Await([] { return !IsWindowOpen("Error"); }));
        CloseWindow();
    }

    /// Everything but the text is painted.
    void ExpectNoText() {
        Start();
        const wxRect canvas = Place("ID_DISPLAY");
        EXPECT_EQ(CScreenshot().Count(WHITE, wxRect(canvas.x, canvas.y, 28, 560)), 28 * 560);
        const wxRect plotter = Place("ID_BEST_PLOTTER");
        EXPECT_EQ(CScreenshot().Count(BLACK, wxRect(plotter.x + 1, plotter.y + 5, 8, 150)), 0);
        AddSquare("a.pol", 10);
        ListFile(m_Folder.PathOf("a.pol"));
        ClickOn("ID_BTN_RUN_GA");
        ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
        ClickOn("ID_BTN_SHOW_RESULT");
        CloseWindow();
    }
};

TEST_F(SurroundingsSession, WithoutFormGiveOneMessageBoxAndAnEmptyWindow) {
    Replace("Nestrix_wdr.xrc", nullptr);
    ExpectOneMessageBox();
}

TEST_F(SurroundingsSession, WithAMalformedFormGiveOneMessageBoxAndAnEmptyWindow) {
    Replace("Nestrix_wdr.xrc", "<resource><object class=\"wxPanel\"");
    ExpectOneMessageBox();
}

TEST_F(SurroundingsSession, WithoutFontCostTheTextOnly) {
    Replace("arial.ttf", nullptr);
    ExpectNoText();
}

TEST_F(SurroundingsSession, WithAFontThatIsNoneCostTheTextOnly) {
    Replace("arial.ttf", "This is not a font.");
    ExpectNoText();
}

TEST_F(SurroundingsSession, WithADecimalCommaReadAndPrintPoints) {
    (void)m_Folder.Write("a.pol", "4\n0,0\n12.5,0\n12.5,12.5\n0,12.5\n;12.5,12.5\n0,0\n");
    Start({{"LC_ALL", CCommaLocale::Name()}, {"LOCPATH", CCommaLocale::Folder()}});
    ListFile(m_Folder.PathOf("a.pol"));
    ListFile(m_Folder.PathOf("a.pol"));
    SetRun(20, 1);
    ClickOn("ID_BTN_RUN_GA");
    ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
    // Two squares side by side save the height of one.
    EXPECT_EQ(CountOutput("Best Chromosome so far is 12.500000\n"), 1);
    CloseWindow();
}

TEST_F(SurroundingsSession, WithoutDisplayEndTheProgramWithAMessage) {
    Launch({{"DISPLAY", ""}, {"WAYLAND_DISPLAY", ""}});
    const std::optional<int> status = m_pProgram->AwaitEnd(std::chrono::seconds(10));
    ASSERT_TRUE(status.has_value());
    EXPECT_GT(*status, 0);
    EXPECT_NE(support::ReadFile(m_Records.PathOf("errors")), "");
}

TEST_F(SurroundingsSession, OnAWaylandDesktopMakeTheProgramAskForX11) {
    // A desktop that offers both: without asking, the toolkit would try Wayland first.
    Start({{"GDK_BACKEND", ""}, {"WAYLAND_DISPLAY", "wayland-of-no-one"}, {"XDG_SESSION_TYPE", "wayland"}});
    const std::string environment =
        support::ReadFile("/proc/" + std::to_string(m_pProgram->Id()) + "/environ");
    EXPECT_EQ(environment.find("GDK_BACKEND"), std::string::npos) << "the test chose the backend itself";
    CloseWindow();
}

}  // namespace
