#include "tests/app/SessionFixture.h"

#include <wx/app.h>
#include <wx/xrc/xmlres.h>

#include <algorithm>
#include <array>
#include <stdexcept>

#include "app/NestrixMain.h"
#include "display/CPolyDisplay.h"
#include "tests/display/EventPump.h"
#include "tests/display/SanitizerDefaults.h"
#include "tests/support/PolygonMaking.h"
#include "tests/support/TextFiles.h"
#include "tests/support/UnderSanitizer.h"

namespace nestrix::support {

namespace {

constexpr char TITLE[] = "Nestrix using GA";
constexpr char DIALOG[] = "Choose a polygon file";

/// At once, for somebody who looks at it.
constexpr std::chrono::milliseconds AT_ONCE(UNDER_SANITIZER ? 3000 : 500);

constexpr std::array CONTROLS{"ID_BTN_ADD",
                              "ID_BTN_CLEAR",
                              "ID_BTN_REMOVE",
                              "ID_BTN_RUN_GA",
                              "ID_BTN_STOP",
                              "ID_BTN_SHOW_RESULT",
                              "ID_SLIDER_MUTATION",
                              "ID_SLIDER_CULL_THRESHOLD",
                              "ID_TXT_MUTATION_PROBABILITY",
                              "ID_TXT_THRESHOLD",
                              "ID_SPIN_INITIAL_POPULATION",
                              "ID_SPIN_GENERATIONS",
                              "ID_GAUGE",
                              "ID_TXT_AVG_FITNESS",
                              "ID_TXT_BEST_FITNESS",
                              "ID_TXT_TOTAL_POP",
                              "ID_LST_POLYGON",
                              "ID_DISPLAY",
                              "ID_AVG_PLOTTER",
                              "ID_BEST_PLOTTER",
                              "ID_TOTAL_POP_PLOTTER"};

/// Once these look as in a window at rest, the window has come to rest.
constexpr std::array LANDMARKS{"ID_BTN_ADD", "ID_BTN_RUN_GA", "ID_BTN_STOP"};

bool IsAtRest() {
    const CScreenshot before;
    (void)PumpUntil([] { return false; }, std::chrono::milliseconds(60));
    return !before.Differs(CScreenshot(), wxRect(wxPoint(0, 0), wxGetDisplaySize()));
}

}  // namespace

SessionFixture::SessionFixture() {
    ParkPointer();
    LearnLayout();
    std::filesystem::create_symlink(std::filesystem::absolute("Nestrix_wdr.xrc"),
                                    m_Folder.PathOf("Nestrix_wdr.xrc"));
    std::filesystem::create_symlink(std::filesystem::absolute("arial.ttf"), m_Folder.PathOf("arial.ttf"));
}

void SessionFixture::Require(bool bHappened, const std::string& otherwise) const {
    if (!bHappened) {
        throw std::runtime_error(otherwise + "\n" + ReadIfThere(m_Records.PathOf("errors")));
    }
}

void SessionFixture::LearnLayout() {
    auto* pFrame = new CNestrixFrame(TITLE);
    pFrame->Show(true);
    pFrame->Initialize();
    const int nWidth = wxGetDisplaySize().x;
    Require(PumpUntil([&] { return pFrame->m_pScrolledWindow->GetSize().x > nWidth - 10; }), "not maximised");
    Require(PumpUntil([&] { return pFrame->IsActive() && IsAtRest(); }), "the window does not come to rest");
    for (const char* pName : CONTROLS) {
        m_Places[pName] = pFrame->FindWindow(wxXmlResource::GetXRCID(pName))->GetScreenRect();
    }
    m_pAtRest = std::make_unique<CScreenshot>();
    pFrame->Destroy();
    // Gone from the screen, too, so that nobody takes it for the program's.
    Require(PumpUntil([] { return wxTopLevelWindows.empty() && !IsWindowOpen(TITLE); }), "it stayed open");
}

void SessionFixture::Launch(const std::map<std::string, std::string>& environment) {
    CProcess::SSettings settings;
    settings.m_Folder = m_Folder.Path();
    settings.m_Output = m_OutputFile;
    settings.m_Errors = m_Records.PathOf("errors");
    settings.m_Closed = m_Closed;
    settings.m_Environment = environment;
    settings.m_Environment["LSAN_OPTIONS"] =
        std::string(LEAK_OPTIONS) + ":suppressions=" + m_Records.Write("leaks", TOOLKIT_LEAKS);
    settings.m_Environment["TSAN_OPTIONS"] = TOOLKIT_RACES;
    m_pProgram = std::make_unique<CProcess>(std::vector{m_Command.string()}, settings);
}

void SessionFixture::Start(const std::map<std::string, std::string>& environment) {
    Launch(environment);
    // The strip's left wall, half-way up.
    const wxPoint wall = Place("ID_DISPLAY").GetPosition() + wxPoint(33, 300);
    const auto isPainted = [&] {
        const CScreenshot now;
        return now.At(wall) == BLACK && now.At(wall + wxPoint(3, 0)) == WHITE;
    };
    Require(Await(isPainted), "the canvas is not painted");
    AwaitRest();
}

void SessionFixture::AwaitRest() const {
    const auto isAtRest = [this] {
        const CScreenshot now;
        return std::ranges::none_of(
            LANDMARKS, [&](const char* pLandmark) { return now.Differs(*m_pAtRest, Place(pLandmark)); });
    };
    Require(Await(isAtRest), "the window does not come to rest");
    Require(AwaitFocus(TITLE), "the window does not get the keys");
}

std::string SessionFixture::AddSquare(const std::string& name, int nSide) {
    return m_Folder.Write(name, PolygonFileText(MakeSquare(static_cast<float>(nSide))));
}

void SessionFixture::StartWithSquares(int nCount, int nSide) {
    for (int i = 0; i < nCount; ++i) {
        AddSquare("square" + std::to_string(i) + ".pol", nSide);
    }
    Start();
    ListWholeFolder();
}

void SessionFixture::ListFile(const std::string& path) {
    ClickOn("ID_BTN_ADD");
    Require(AwaitWindow(DIALOG), "no file dialog");
    TypeText(path);
    // The dialog completes what is typed a moment later, and would take Return for half a name before.
    std::this_thread::sleep_for(std::chrono::milliseconds(200));
    PressKeys({"Return"});
    Require(Await([] { return !IsWindowOpen(DIALOG); }), "the file dialog stayed open");
}

void SessionFixture::ListWholeFolder() {
    ClickOn("ID_BTN_ADD");
    Require(AwaitWindow(DIALOG), "no file dialog");
    // It reads the folder after it has come up.
    AwaitStillness();
    PressKeys({"ctrl+a", "alt+o"});
    Require(Await([] { return !IsWindowOpen(DIALOG); }), "the file dialog stayed open");
}

void SessionFixture::AwaitStillness() {
    constexpr int STILL = 6;  // pictures, a tenth of a second apart
    const wxRect screen(0, 0, 1280, 800);
    CScreenshot last;
    int nSame = 0;
    (void)Await(
        [&] {
            std::this_thread::sleep_for(std::chrono::milliseconds(100));
            CScreenshot now;
            nSame = now.Differs(last, screen) ? 0 : nSame + 1;
            last = std::move(now);
            return nSame == STILL;
        },
        std::chrono::seconds(10));
}

void SessionFixture::ClickOn(const std::string& control, int nButton) {
    const wxRect place = Place(control);
    Click(place.GetPosition() + wxPoint(place.width / 2, place.height / 2), nButton);
}

void SessionFixture::SetRun(int nPopulation, int nGenerations) {
    PressKeys({"alt+p", "ctrl+a"});
    TypeText(std::to_string(nPopulation));
    PressKeys({"alt+g", "ctrl+a"});
    TypeText(std::to_string(nGenerations));
    PressKeys({"Tab"});
}

std::string SessionFixture::Output() const {
    return ReadIfThere(m_OutputFile);
}

int SessionFixture::CountOutput(const std::string& text) const {
    const std::string output = Output();
    int nCount = 0;
    for (size_t i = output.find(text); i != std::string::npos; i = output.find(text, i + text.size())) {
        ++nCount;
    }
    return nCount;
}

bool SessionFixture::AwaitOutput(const std::string& text, int nTimes,
                                 std::chrono::milliseconds patience) const {
    return Await([&] { return CountOutput(text) >= nTimes; }, patience);
}

float SessionFixture::LastNumberAfter(const std::string& text) const {
    const std::string output = Output();
    const size_t nText = output.rfind(text);
    return nText == std::string::npos ? -1.0F : std::stof(output.substr(nText + text.size()));
}

bool SessionFixture::IsGaugeFull() const {
    const wxRect& gauge = Place("ID_GAUGE");
    const CScreenshot now;
    const auto hasBarAt = [&](int nX) {
        for (int nY = gauge.y; nY < gauge.GetBottom(); ++nY) {
            const SColour colour = now.At({nX, nY});
            if (colour.m_nBlue > colour.m_nRed + 60) {
                return true;
            }
        }
        return false;
    };
    return hasBarAt(gauge.x + 8) && hasBarAt(gauge.GetRight() - 7);
}

void SessionFixture::CloseWindow() {
    Require(AwaitFocus(TITLE), "the window does not get the keys");
    const std::chrono::milliseconds before = m_pProgram->ProcessorTime();
    PressKeys({"alt+F4"});
    EXPECT_TRUE(Await([] { return !IsWindowOpen(TITLE); }, std::chrono::seconds(10))) << "the window stays";
    EXPECT_EQ(m_pProgram->AwaitEnd(std::chrono::seconds(90)), 0) << ReadIfThere(m_Records.PathOf("errors"));
    EXPECT_LT((m_pProgram->ProcessorTime() - before).count(), AT_ONCE.count()) << "it worked on";
}

}  // namespace nestrix::support
