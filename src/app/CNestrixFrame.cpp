#include "app/CNestrixFrame.h"

#include <wx/log.h>
#include <wx/msgdlg.h>
#include <wx/sizer.h>
#include <wx/xrc/xmlres.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>

#include "app/CPolyThread.h"
#include "app/FormControls.h"
#include "app/PolygonListView.h"
#include "display/CPolyDisplay.h"
#include "display/OpenGLSupport.h"

using namespace nestrix;

namespace {

constexpr char RESOURCE_FILE[] = "Nestrix_wdr.xrc";
constexpr int BORDER = 1;
constexpr int SCROLL_UNIT = 10;    ///< pixels
constexpr int SCROLL_UNITS = 100;  ///< each way

}  // namespace

wxBEGIN_EVENT_TABLE(CNestrixFrame, wxFrame)
    EVT_MENU(XRCID("ID_MNU_COMMANDS_NEXT"), CNestrixFrame::OnMenuNext)
    EVT_BUTTON(XRCID("ID_BTN_ADD"), CNestrixFrame::OnAdd)
    EVT_BUTTON(XRCID("ID_BTN_CLEAR"), CNestrixFrame::OnClear)
    EVT_BUTTON(XRCID("ID_BTN_REMOVE"), CNestrixFrame::OnRemove)
    EVT_BUTTON(XRCID("ID_BTN_RUN_GA"), CNestrixFrame::OnRunGA)
    EVT_BUTTON(XRCID("ID_BTN_STOP"), CNestrixFrame::OnStop)
    EVT_BUTTON(XRCID("ID_BTN_SHOW_RESULT"), CNestrixFrame::OnShowResult)
    EVT_MENU(ID_GENERATION_DONE, CNestrixFrame::OnGenerationDone)
    EVT_COMMAND_SCROLL(XRCID("ID_SLIDER_MUTATION"), CNestrixFrame::OnMutationChange)
    EVT_COMMAND_SCROLL(XRCID("ID_SLIDER_CULL_THRESHOLD"), CNestrixFrame::OnCullThresholdChange)
wxEND_EVENT_TABLE()

wxBEGIN_EVENT_TABLE(CNestrixScrolledWindow, wxScrolledWindow)
wxEND_EVENT_TABLE()

CNestrixScrolledWindow::~CNestrixScrolledWindow() = default;

CNestrixFrame::CNestrixFrame(const wxString& title) {
    Create(nullptr, -1, title);
    LoadForm();
    m_pScrolledWindow =
        new CNestrixScrolledWindow(this, -1, wxDefaultPosition, wxDefaultSize, wxHSCROLL | wxVSCROLL);
    m_pScrolledWindow->m_pScrollCallback = this;
    LayOutForm();
    if (auto* pList = FindControl<wxListBox>(*this, "ID_LST_POLYGON")) {
        ShowEndsOfPaths(*pList);
    }
    Maximize(true);
}

CNestrixFrame::~CNestrixFrame() {
    // No request to stop here, deliberately: a thread that is deleted while it runs abandons its search,
    // since nobody will see what it would find.
    delete m_pThread;
}

/// Of the toolkit's several messages about a missing or malformed file, the user sees this one instead.
void CNestrixFrame::LoadForm() {
    wxXmlResource* pResources = wxXmlResource::Get();
    bool bLoaded = false;
    {
        const wxLogNull quiet;
        pResources->InitAllHandlers();
        bLoaded = pResources->Load(RESOURCE_FILE);
    }
    if (!bLoaded) {
        wxMessageBox("Couldn't load the XML GUI resource", "Error", wxOK, this);
    }
}

void CNestrixFrame::LayOutForm() {
    auto* pOuter = new wxBoxSizer(wxVERTICAL);
    auto* pInner = new wxBoxSizer(wxVERTICAL);
    wxPanel* pForm = nullptr;
    {
        const wxLogNull quiet;
        pForm = wxXmlResource::Get()->LoadPanel(m_pScrolledWindow, "NestrixMainDlg");
    }
    if (pForm != nullptr) {
        // Pinned, since the toolkit would measure the form anew whenever the list gains or loses a line, and
        // its boxes from the sizes that their contents happen to have: large once, it would stay so for ever.
        pForm->SetMinSize(pForm->GetBestSize());
        pInner->Add(pForm, 1, wxALL | wxEXPAND, BORDER);
    }
    m_pScrolledWindow->SetSizer(pInner);
    pInner->SetSizeHints(m_pScrolledWindow);
    m_pScrolledWindow->SetScrollbars(SCROLL_UNIT, SCROLL_UNIT, SCROLL_UNITS, SCROLL_UNITS, 0, 0, false);
    m_pScrolledWindow->EnableScrolling(true, true);
    pOuter->Add(m_pScrolledWindow, 1, wxALL | wxEXPAND, BORDER);
    SetSizer(pOuter);
    pOuter->SetSizeHints(this);
}

void CNestrixFrame::Initialize() {
    std::srand(static_cast<unsigned int>(std::time(nullptr)));
    m_pDisplay = new CPolyDisplay(m_pScrolledWindow);
    Plant(m_pDisplay, "ID_DISPLAY");
    m_pDisplay->Initialize(m_Container.m_fContainerWidth, m_Container.m_fContainerHeight);
    m_pDisplay->Refresh(true, nullptr);
    m_pAvgPlotter = PlantPlotter("ID_AVG_PLOTTER");
    m_pBestPlotter = PlantPlotter("ID_BEST_PLOTTER");
    m_pTotalPopPlotter = PlantPlotter("ID_TOTAL_POP_PLOTTER");
    m_pGauge = FindControl<wxGauge>(*this, "ID_GAUGE");
    m_pTxtAvgFitness = FindControl<wxTextCtrl>(*this, "ID_TXT_AVG_FITNESS");
    m_pTxtBestFitness = FindControl<wxTextCtrl>(*this, "ID_TXT_BEST_FITNESS");
    m_pTxtTotalPop = FindControl<wxTextCtrl>(*this, "ID_TXT_TOTAL_POP");
    HideCanvasesWithoutPlace();
    if (m_pDisplay->IsShown() && !IsOpenGLAvailable()) {
        wxMessageBox(
            "This screen has no OpenGL: packings and plots cannot be drawn.\n"
            "The search works all the same.",
            "Error", wxOK, this);
    }
}

/// There is nothing to type into a canvas: Tab passes over it, and over the placeholder around it.
void CNestrixFrame::Plant(wxWindow* pCanvas, const char* pPlaceholder) {
    const wxLogNull quiet;
    pCanvas->SetCanFocus(false);
    if (wxXmlResource::Get()->AttachUnknownControl(pPlaceholder, pCanvas, m_pScrolledWindow)) {
        pCanvas->GetParent()->SetCanFocus(false);
    }
}

CPlotter* CNestrixFrame::PlantPlotter(const char* pPlaceholder) {
    auto* pPlotter = new CPlotter(m_pScrolledWindow);
    Plant(pPlotter, pPlaceholder);
    pPlotter->Show(true);
    pPlotter->Initialize();
    return pPlotter;
}

/// A form without the placeholder leaves the canvas where it was created. It stays at the commands' service,
/// but all such would lie upon each other in the window's corner.
void CNestrixFrame::HideCanvasesWithoutPlace() {
    for (wxWindow* pCanvas :
         std::initializer_list<wxWindow*>{m_pDisplay, m_pAvgPlotter, m_pBestPlotter, m_pTotalPopPlotter}) {
        pCanvas->Show(pCanvas->GetParent() != m_pScrolledWindow);
    }
}

void CNestrixFrame::OnScrolled() {
    std::puts("Scrolled");
}
