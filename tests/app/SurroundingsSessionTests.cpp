#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include "tests/app/SessionFixture.h"
#include "tests/display/CVirtualDisplay.h"
#include "tests/support/CCommaLocale.h"
#include "tests/support/TextFiles.h"

namespace nestrix {

namespace {

using support::Await;
using support::AwaitFocus;
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

    void DismissMessageBox() {
        ASSERT_TRUE(AwaitFocus("Error"));
        PressKeys({"Return"});
        ASSERT_TRUE(Await([] { return !IsWindowOpen("Error"); }));
        ASSERT_TRUE(AwaitFocus("Nestrix using GA"));
    }

    /// Whether the area has one colour only.
    static bool IsBlank(const wxRect& area) {
        const CScreenshot now;
        return now.Count(now.At(area.GetPosition()), area) == area.width * area.height;
    }

    void ExpectOneMessageBoxAndAnEmptyWindow() {
        Launch();
        DismissMessageBox();
        // All of the screen but the title bar.
        EXPECT_TRUE(Await([] { return IsBlank(wxRect(2, 30, 1276, 768)); }));
        CloseWindow();
    }

    void ExpectAWindowWithoutPictures(const std::map<std::string, std::string>& environment = {}) {
        AddSquare("a.pol", 50);
        Launch(environment);
        DismissMessageBox();
        AwaitRest();
        ListWholeFolder();
        SetRun(5, 3);
        ClickOn("ID_BTN_RUN_GA");
        ASSERT_TRUE(AwaitOutput("Thread Exited\n"));
        EXPECT_TRUE(Await([this] { return IsGaugeFull(); }));
        ClickOn("ID_BTN_SHOW_RESULT");
        ASSERT_TRUE(AwaitOutput("Best Chromosome so far is ", 4));
        support::ParkPointer();
        for (const char* pPlace :
             {"ID_DISPLAY", "ID_AVG_PLOTTER", "ID_BEST_PLOTTER", "ID_TOTAL_POP_PLOTTER"}) {
            EXPECT_TRUE(Await([&] { return IsBlank(Place(pPlace)); })) << pPlace;
        }
        CloseWindow();
        EXPECT_EQ(support::ReadIfThere(m_Records.PathOf("errors")).find("assert"), std::string::npos);
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
        ExpectNoWordAboutAFont();
    }

    void ExpectNoWordAboutAFont() const {
        const std::string said = Output() + support::ReadIfThere(m_Records.PathOf("errors"));
        for (const char* pWord : {"arial", "ont", "FT"}) {
            EXPECT_EQ(said.find(pWord), std::string::npos) << said;
        }
    }
};

TEST_F(SurroundingsSession, WithoutFormGiveOneMessageBoxAndAnEmptyWindow) {
    Replace("Nestrix_wdr.xrc", nullptr);
    ExpectOneMessageBoxAndAnEmptyWindow();
}

TEST_F(SurroundingsSession, WithAMalformedFormGiveOneMessageBoxAndAnEmptyWindow) {
    Replace("Nestrix_wdr.xrc", "<resource><object class=\"wxPanel\"");
    ExpectOneMessageBoxAndAnEmptyWindow();
}

TEST_F(SurroundingsSession, WithoutFontCostTheTextOnly) {
    Replace("arial.ttf", nullptr);
    ExpectNoText();
}

TEST_F(SurroundingsSession, WithAFontThatIsNoneCostTheTextOnly) {
    Replace("arial.ttf", "This is not a font.");
    ExpectNoText();
}

TEST_F(SurroundingsSession, WithoutOpenGLGiveOneMessageBoxAndAWindowWithoutPictures) {
    const support::CVirtualDisplay screen("1280x800x24", "GLX");
    const support::CWindowManager windowManager;
    ExpectAWindowWithoutPictures();
}

TEST_F(SurroundingsSession, WithAnOpenGLThatRefusesGiveTheSame) {
    // Neither drawn here nor by a server that does not do so for others, as over a remote connection.
    ExpectAWindowWithoutPictures({{"LIBGL_ALWAYS_INDIRECT", "1"}});
}

TEST_F(SurroundingsSession, WithoutOpenGLAndFormGiveTheMessageAboutTheFormOnly) {
    Replace("Nestrix_wdr.xrc", nullptr);
    const support::CVirtualDisplay screen("1280x800x24", "GLX");
    const support::CWindowManager windowManager;
    ExpectOneMessageBoxAndAnEmptyWindow();
}

TEST_F(SurroundingsSession, WithoutStandardOutputAreNotMistakenForIt) {
    // The connection to the display would take its place, and the progress lines would go there.
    m_Closed = {STDOUT_FILENO};
    StartWithSquares(3, 30);
    SetRun(10, 50);
    ClickOn("ID_BTN_RUN_GA");
    EXPECT_TRUE(Await([this] { return IsGaugeFull(); }));
    const CScreenshot before;
    ClickOn("ID_BTN_SHOW_RESULT");
    EXPECT_TRUE(Await([&] { return CScreenshot().Differs(before, Place("ID_DISPLAY")); }));
    CloseWindow();
}

TEST_F(SurroundingsSession, WithoutAnyStandardStreamGiveTheProgramTheNullDevice) {
    m_Closed = {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO};
    Start();
    for (const int nDescriptor : m_Closed) {
        const std::string process = "/proc/" + std::to_string(m_pProgram->Id());
        EXPECT_EQ(std::filesystem::read_symlink(process + "/fd/" + std::to_string(nDescriptor)), "/dev/null");
    }
    CloseWindow();
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
    const std::optional<int> status = m_pProgram->AwaitEnd(std::chrono::seconds(90));
    ASSERT_TRUE(status.has_value());
    EXPECT_GT(*status, 0);
    EXPECT_NE(support::ReadIfThere(m_Records.PathOf("errors")), "");
}

/// A Wayland desktop that never answers.
class CSilentDesktop {
public:
    explicit CSilentDesktop(const std::string& path) {
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        path.copy(address.sun_path, sizeof(address.sun_path) - 1);
        EXPECT_EQ(bind(m_nSocket, reinterpret_cast<const sockaddr*>(&address), sizeof(address)), 0);
        EXPECT_EQ(listen(m_nSocket, 8), 0);
    }
    ~CSilentDesktop() { close(m_nSocket); }
    CSilentDesktop(const CSilentDesktop&) = delete;
    CSilentDesktop& operator=(const CSilentDesktop&) = delete;

    /// Whether a program has called.
    [[nodiscard]] bool HasBeenCalled() const {
        pollfd caller{m_nSocket, POLLIN, 0};
        return poll(&caller, 1, 0) == 1;
    }

private:
    const int m_nSocket = socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
};

TEST_F(SurroundingsSession, OnAWaylandDesktopMakeTheProgramAskForX11) {
    // A desktop that offers both, of which the toolkit prefers Wayland by itself.
    const std::string path = m_Records.PathOf("wayland");
    const CSilentDesktop desktop(path);
    Start({{"GDK_BACKEND", ""}, {"WAYLAND_DISPLAY", path}, {"XDG_SESSION_TYPE", "wayland"}});
    EXPECT_FALSE(desktop.HasBeenCalled());
    CloseWindow();
}

}  // namespace

}  // namespace nestrix
