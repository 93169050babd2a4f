#include <gmock/gmock.h>
#include <wx/app.h>

#include <algorithm>
#include <cstdlib>
#include <ctime>
#include <filesystem>

#include "display/CPolyDisplay.h"
#include "tests/app/CDialogAnswers.h"
#include "tests/app/FrameFixture.h"
#include "tests/display/EventPump.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

using support::CDialogAnswers;
using support::FrameFixture;
using support::PrintedBy;

class StartUp : public FrameFixture {};

/// Works in another folder while it lives.
class CWorkingFolder {
public:
    explicit CWorkingFolder(const std::filesystem::path& folder) : m_Home(std::filesystem::current_path()) {
        std::filesystem::current_path(folder);
    }
    ~CWorkingFolder() { std::filesystem::current_path(m_Home); }
    CWorkingFolder(const CWorkingFolder&) = delete;
    CWorkingFolder& operator=(const CWorkingFolder&) = delete;

private:
    std::filesystem::path m_Home;
};

/// The window as it opens in the current folder, whatever is there.
class CLooseFrame {
public:
    CLooseFrame() {
        delete wxXmlResource::Set(new wxXmlResource);
        m_pFrame = new CNestrixFrame("Nestrix using GA");
        m_pFrame->Show(true);
        m_pFrame->Initialize();
        support::PumpPending();
    }
    ~CLooseFrame() {
        m_pFrame->Destroy();
        wxTheApp->ProcessIdle();
    }
    CLooseFrame(const CLooseFrame&) = delete;
    CLooseFrame& operator=(const CLooseFrame&) = delete;

    CNestrixFrame* operator->() const { return m_pFrame; }
    CNestrixFrame& operator*() const { return *m_pFrame; }

private:
    CNestrixFrame* m_pFrame;
};

/// Whether the scrolled window shows anything.
bool IsEmpty(const CNestrixFrame& frame) {
    const wxWindowList& children = frame.m_pScrolledWindow->GetChildren();
    return std::none_of(children.begin(), children.end(), [](wxWindow* pChild) { return pChild->IsShown(); });
}

/// Each command that the window knows, whether or not its control exists.
void SendEveryCommand(CNestrixFrame& frame) {
    for (const char* pButton : {"ID_BTN_ADD", "ID_BTN_CLEAR", "ID_BTN_REMOVE", "ID_BTN_RUN_GA", "ID_BTN_STOP",
                                "ID_BTN_SHOW_RESULT"}) {
        wxCommandEvent event(wxEVT_BUTTON, wxXmlResource::GetXRCID(pButton));
        EXPECT_TRUE(frame.ProcessWindowEvent(event)) << pButton;
    }
    for (const char* pSlider : {"ID_SLIDER_MUTATION", "ID_SLIDER_CULL_THRESHOLD"}) {
        wxScrollEvent event(wxEVT_SCROLL_CHANGED, wxXmlResource::GetXRCID(pSlider));
        EXPECT_TRUE(frame.ProcessWindowEvent(event)) << pSlider;
    }
    frame.m_nGenerations = 1;  // Otherwise there is no progress to show.
    wxCommandEvent notice(wxEVT_MENU, ID_GENERATION_DONE);
    EXPECT_TRUE(frame.ProcessWindowEvent(notice));
    support::PumpPending();
}

TEST_F(StartUp, OpensAMaximisedWindow) {
    EXPECT_EQ(m_pFrame->GetTitle(), "Nestrix using GA");
    EXPECT_TRUE(m_pFrame->IsMaximized());
    EXPECT_TRUE(m_pFrame->IsShown());
    EXPECT_EQ(m_pFrame->GetMenuBar(), nullptr);
}

TEST_F(StartUp, FindsTheControlsThatShowProgress) {
    EXPECT_EQ(m_pFrame->m_pGauge, &Control<wxGauge>("ID_GAUGE"));
    EXPECT_EQ(m_pFrame->m_pTxtAvgFitness, &Control<wxTextCtrl>("ID_TXT_AVG_FITNESS"));
    EXPECT_EQ(m_pFrame->m_pTxtBestFitness, &Control<wxTextCtrl>("ID_TXT_BEST_FITNESS"));
    EXPECT_EQ(m_pFrame->m_pTxtTotalPop, &Control<wxTextCtrl>("ID_TXT_TOTAL_POP"));
}

TEST_F(StartUp, BeginsWithoutARun) {
    EXPECT_EQ(m_pFrame->m_pThread, nullptr);
    EXPECT_EQ(m_pFrame->m_nGenerations, 0);
    EXPECT_EQ(m_pFrame->m_Container.m_pEventHandler, nullptr);
    EXPECT_TRUE(List().IsEmpty());
}

TEST_F(StartUp, MeasuresTheStripOnTheCanvas) {
    EXPECT_EQ(m_pFrame->m_pDisplay->m_fStripWidth, 400.0F);
    EXPECT_EQ(m_pFrame->m_pDisplay->m_fStripHeight, 600.0F);
    EXPECT_EQ(m_pFrame->m_pDisplay->m_fViewHeight, 720.0F);
}

TEST(Initialize, SeedsTheRandomGeneratorWithTheClock) {
    delete wxXmlResource::Set(new wxXmlResource);
    auto* pFrame = new CNestrixFrame("Nestrix using GA");
    pFrame->Show(true);
    const std::time_t before = std::time(nullptr);
    pFrame->Initialize();
    const int nDrawn = std::rand();
    bool bFound = false;
    for (std::time_t now = before; now <= std::time(nullptr); ++now) {
        std::srand(static_cast<unsigned int>(now));
        bFound = bFound || std::rand() == nDrawn;
    }
    EXPECT_TRUE(bFound);
    pFrame->Destroy();
    wxTheApp->ProcessIdle();
}

TEST_F(StartUp, HooksTheFrameToTheScrolledWindow) {
    EXPECT_EQ(m_pFrame->m_pScrolledWindow->m_pScrollCallback, m_pFrame);
    EXPECT_EQ(PrintedBy([this] { m_pFrame->m_pScrolledWindow->m_pScrollCallback->OnScrolled(); }),
              "Scrolled\n");
}

TEST_F(StartUp, TakesTheMenuCommandThatDoesNothing) {
    EXPECT_EQ(PrintedBy([this] {
                  wxCommandEvent event(wxEVT_MENU, wxXmlResource::GetXRCID("ID_MNU_COMMANDS_NEXT"));
                  EXPECT_TRUE(m_pFrame->ProcessWindowEvent(event));
              }),
              "");
}

/// Opens the frame's event table.
class CEventTableProbe : public CNestrixFrame {
public:
    static const wxEventTableEntry* Entries() { return sm_eventTable.entries; }
};

struct SExpectedEntry {
    wxEventType m_nType;
    int m_nId;
};

TEST(EventTable, ListsEveryCommandInItsOrder) {
    std::vector<SExpectedEntry> expected{
        {wxEVT_MENU, XRCID("ID_MNU_COMMANDS_NEXT")}, {wxEVT_BUTTON, XRCID("ID_BTN_ADD")},
        {wxEVT_BUTTON, XRCID("ID_BTN_CLEAR")},       {wxEVT_BUTTON, XRCID("ID_BTN_REMOVE")},
        {wxEVT_BUTTON, XRCID("ID_BTN_RUN_GA")},      {wxEVT_BUTTON, XRCID("ID_BTN_STOP")},
        {wxEVT_BUTTON, XRCID("ID_BTN_SHOW_RESULT")}, {wxEVT_MENU, 200}};
    for (const int nSlider : {XRCID("ID_SLIDER_MUTATION"), XRCID("ID_SLIDER_CULL_THRESHOLD")}) {
        for (const wxEventType nType :
             {wxEVT_SCROLL_TOP, wxEVT_SCROLL_BOTTOM, wxEVT_SCROLL_LINEUP, wxEVT_SCROLL_LINEDOWN,
              wxEVT_SCROLL_PAGEUP, wxEVT_SCROLL_PAGEDOWN, wxEVT_SCROLL_THUMBTRACK, wxEVT_SCROLL_THUMBRELEASE,
              wxEVT_SCROLL_CHANGED}) {
            expected.push_back({nType, nSlider});
        }
    }
    expected.push_back({wxEVT_NULL, 0});
    const wxEventTableEntry* pEntry = CEventTableProbe::Entries();
    for (size_t i = 0; i < expected.size(); ++i, ++pEntry) {
        EXPECT_EQ(pEntry->m_eventType, expected[i].m_nType) << i;
        EXPECT_EQ(pEntry->m_id, expected[i].m_nId) << i;
    }
}

TEST(FormWithoutResources, IsMissedInOneMessageBox) {
    const support::CTemporaryFolder folder;
    const CWorkingFolder elsewhere(folder.Path());
    CDialogAnswers answers(wxID_OK);
    const CLooseFrame frame;
    ASSERT_EQ(answers.Messages().size(), 1U);
    EXPECT_EQ(answers.Messages()[0], "Error: Couldn't load the XML GUI resource");
    EXPECT_EQ(frame->GetTitle(), "Nestrix using GA");
    EXPECT_TRUE(frame->IsMaximized());
    EXPECT_TRUE(IsEmpty(*frame));
}

TEST(FormWithoutResources, IsMissedInOneMessageBoxWhenTheFileIsMalformed) {
    for (const char* pContent : {"", "not XML at all", "<resource><object class=\"wxPanel\"", "<other/>"}) {
        const support::CTemporaryFolder folder;
        (void)folder.Write("Nestrix_wdr.xrc", pContent);
        const CWorkingFolder elsewhere(folder.Path());
        CDialogAnswers answers(wxID_OK);
        const CLooseFrame frame;
        EXPECT_EQ(answers.Messages().size(), 1U) << pContent;
    }
}

TEST(FormWithoutResources, LeavesEveryCommandHarmless) {
    const support::CTemporaryFolder folder;
    const CWorkingFolder elsewhere(folder.Path());
    CDialogAnswers answers(wxID_CANCEL);
    const CLooseFrame frame;
    SendEveryCommand(*frame);
    EXPECT_EQ(frame->m_pThread, nullptr);
    EXPECT_TRUE(IsEmpty(*frame));
}

TEST(FormWithFewControls, LeavesEveryCommandHarmless) {
    const support::CTemporaryFolder folder;
    (void)folder.Write("Nestrix_wdr.xrc",
                       "<resource><object class=\"wxPanel\" name=\"NestrixMainDlg\">"
                       "<object class=\"wxTextCtrl\" name=\"ID_LST_POLYGON\"/></object></resource>");
    const CWorkingFolder elsewhere(folder.Path());
    CDialogAnswers answers(wxID_CANCEL);
    const CLooseFrame frame;
    SendEveryCommand(*frame);
    // Only the file dialog, no message about the form.
    EXPECT_THAT(answers.Messages(), testing::ElementsAre("Choose a polygon file"));
}

TEST(FormWithFewControls, HidesTheCanvasesThatHaveNoPlace) {
    const support::CTemporaryFolder folder;
    (void)folder.Write("Nestrix_wdr.xrc",
                       "<resource><object class=\"wxPanel\" name=\"NestrixMainDlg\">"
                       "<object class=\"unknown\" name=\"ID_BEST_PLOTTER\"/></object></resource>");
    const CWorkingFolder elsewhere(folder.Path());
    const CLooseFrame frame;
    EXPECT_TRUE(frame->m_pBestPlotter->IsShownOnScreen());
    for (const wxWindow* pCanvas : std::initializer_list<const wxWindow*>{
             frame->m_pDisplay, frame->m_pAvgPlotter, frame->m_pTotalPopPlotter}) {
        EXPECT_FALSE(pCanvas->IsShown());
    }
}

}  // namespace

}  // namespace nestrix
