#include "display/CPolyDisplay.h"

#include <wx/dcclient.h>
#include <wx/log.h>
#include <wx/xrc/xmlres.h>

#include "display/CanvasText.h"

using namespace nestrix;

namespace {

const wxSize FIRST_SIZE(400, 600);
constexpr float FACE_SIZE = 12.0F;

constexpr char ID_BOUNDING_BOX[] = "ID_RENDER_DRAW_BOUNDING_BOX";
constexpr char ID_FRONT_POINTS[] = "ID_RENDER_DRAW_FRONT_POINTS";
constexpr char ID_BACK_POINTS[] = "ID_RENDER_DRAW_BACK_POINTS";
constexpr char ID_REFERENCE[] = "ID_RENDER_DRAW_REFERENCE";
constexpr char ID_SEQ_NUMBER[] = "ID_RENDER_DRAW_SEQ_NUMBER";
constexpr char ID_FRONT_LINES[] = "ID_RENDER_DRAW_FRONT_LINES";
constexpr char ID_BACK_LINES[] = "ID_RENDER_DRAW_BACK_LINES";

}  // namespace

bool g_PolyOptions[RENDER_OPTION_COUNT] = {};

// No size event here, deliberately: see the class.
wxBEGIN_EVENT_TABLE(CPolyDisplay, wxGLCanvas)
    EVT_PAINT(CPolyDisplay::OnPaint)
    EVT_ERASE_BACKGROUND(CPolyDisplay::OnEraseBackground)
    EVT_RIGHT_DOWN(CPolyDisplay::OnRightDown)
    EVT_MENU(wxXmlResource::GetXRCID(ID_BOUNDING_BOX), CPolyDisplay::OnMenuDrawBoundingBox)
    EVT_MENU(wxXmlResource::GetXRCID(ID_FRONT_POINTS), CPolyDisplay::OnMenuDrawFrontPoints)
    EVT_MENU(wxXmlResource::GetXRCID(ID_BACK_POINTS), CPolyDisplay::OnMenuDrawBackPoints)
    EVT_MENU(wxXmlResource::GetXRCID(ID_REFERENCE), CPolyDisplay::OnMenuDrawReferencePoints)
    EVT_MENU(wxXmlResource::GetXRCID(ID_SEQ_NUMBER), CPolyDisplay::OnMenuDrawSeqNumber)
    EVT_MENU(wxXmlResource::GetXRCID(ID_FRONT_LINES), CPolyDisplay::OnMenuDrawFrontLines)
    EVT_MENU(wxXmlResource::GetXRCID(ID_BACK_LINES), CPolyDisplay::OnMenuDrawBackLines)
wxEND_EVENT_TABLE()

CPolyDisplay::CPolyDisplay(wxWindow* parent) : CPolyDisplay(parent, CGLSurface::CLeniency()) {}

CPolyDisplay::CPolyDisplay(wxWindow* pParent, const CGLSurface::CLeniency&)
    : wxGLCanvas(pParent, -1, g_OpenGLAttribList, wxPoint(0, 0), FIRST_SIZE, 0, "GLCanvas", wxNullPalette),
      m_Font(FONT_FILE),
      m_Surface(*this, pParent, FIRST_SIZE) {}

CPolyDisplay::~CPolyDisplay() = default;

void CPolyDisplay::Initialize(float fStripWidth, float fStripHeight) {
    Show(true);
    m_fStripWidth = fStripWidth;
    m_fStripHeight = fStripHeight;
    m_fViewWidth = fStripWidth + 2.0F * CANVAS_ORIGIN.x;
    m_fViewHeight = fStripHeight + CANVAS_ORIGIN.y;
    m_bSetUpPending = !m_Surface.MakeCurrent();
    if (!m_bSetUpPending) {
        SetUpView();
    }
    LoadRenderMenu();
}

/// The canvas must be current.
void CPolyDisplay::SetUpView() {
    SetUpFlatDrawing();
    // The view keeps the canvas's proportions, at the expense of the height asked for.
    const wxSize size = GetClientSize();
    m_fViewHeight = static_cast<float>(size.y) / static_cast<float>(size.x) * m_fViewWidth;
    m_Surface.SetView(m_fViewWidth, m_fViewHeight);
    glHint(GL_POINT_SMOOTH_HINT, GL_NICEST);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    glEnable(GL_POINT_SMOOTH);
    m_Surface.SetLineWidth(1.0F);
    m_Surface.SetPointSize(1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    SetFaceSize(m_Font, FACE_SIZE * m_Surface.Scale());
}

void CPolyDisplay::LoadRenderMenu() {
    {
        // A missing menu costs the overlays; it is not worth a dialog.
        const wxLogNull quiet;
        m_pRenderMenuBar.reset(wxXmlResource::Get()->LoadMenuBar(nullptr, "RenderMenu"));
    }
    const int nMenu = m_pRenderMenuBar ? m_pRenderMenuBar->FindMenu("Options") : wxNOT_FOUND;
    if (nMenu == wxNOT_FOUND) {
        return;
    }
    m_pRenderMenu.reset(m_pRenderMenuBar->Remove(static_cast<size_t>(nMenu)));
    m_pMenu = m_pRenderMenu.get();
    // The front and back lines are left out, deliberately: their marks are as the resource file has them.
    for (const char* pName :
         {ID_BOUNDING_BOX, ID_FRONT_POINTS, ID_BACK_POINTS, ID_REFERENCE, ID_SEQ_NUMBER}) {
        CheckMenuItem(pName, false);
    }
}

void CPolyDisplay::CheckMenuItem(const char* pName, bool bCheck) {
    wxMenuItem* pItem = m_pMenu != nullptr ? m_pMenu->FindItem(wxXmlResource::GetXRCID(pName)) : nullptr;
    if (pItem != nullptr && pItem->IsCheckable()) {
        pItem->Check(bCheck);
    }
}

void CPolyDisplay::AddPolygon(const CPolygon& polygon) {
    SPolyItem item{polygon, static_cast<int>(m_PolyItems.size())};
    item.m_Polygon.m_ReferencePoint = polygon.m_ReferencePoint + CANVAS_ORIGIN;
    m_PolyItems.push_back(std::move(item));
    const float fTop = polygon.m_BoundingBoxMax.y + polygon.m_ReferencePoint.y;
    if (fTop > m_fHeight) {
        m_fHeight = fTop;
    }
}

void CPolyDisplay::Clear() {
    m_PolyItems.clear();
    m_fHeight = 0.0F;
}

void CPolyDisplay::OnPaint(wxPaintEvent&) {
    const wxPaintDC dc(this);  // Nothing is drawn with it, but without one the toolkit paints for ever.
    if (!m_Surface.MakeCurrent()) {
        return;
    }
    if (m_bSetUpPending) {
        SetUpView();
        m_bSetUpPending = false;
    }
    glClear(GL_COLOR_BUFFER_BIT);
    glLoadIdentity();
    for (const SPolyItem& item : m_PolyItems) {
        DrawPolygon(item);
    }
    DrawMarkers();
    DrawAxes();
    DrawHeight();
    SwapBuffers();
}

/// Nothing: the paint covers the whole canvas, and erasing it first would flicker.
void CPolyDisplay::OnEraseBackground(wxEraseEvent&) {}

void CPolyDisplay::OnRightDown(wxMouseEvent& event) {
    if (m_pMenu != nullptr) {
        PopupMenu(m_pMenu, event.m_x, event.m_y);
    }
}

void CPolyDisplay::SwitchOption(ERenderOption option, const char* pName, bool bOn) {
    g_PolyOptions[option] = bOn;
    CheckMenuItem(pName, bOn);
    Refresh(true, nullptr);
}

void CPolyDisplay::OnMenuDrawBoundingBox(wxCommandEvent& event) {
    SwitchOption(RENDER_BOUNDING_BOX, ID_BOUNDING_BOX, event.IsChecked());
}

void CPolyDisplay::OnMenuDrawFrontPoints(wxCommandEvent& event) {
    SwitchOption(RENDER_FRONT_POINTS, ID_FRONT_POINTS, event.IsChecked());
}

void CPolyDisplay::OnMenuDrawBackPoints(wxCommandEvent& event) {
    SwitchOption(RENDER_BACK_POINTS, ID_BACK_POINTS, event.IsChecked());
}

void CPolyDisplay::OnMenuDrawReferencePoints(wxCommandEvent& event) {
    SwitchOption(RENDER_REFERENCE, ID_REFERENCE, event.IsChecked());
}

void CPolyDisplay::OnMenuDrawSeqNumber(wxCommandEvent& event) {
    SwitchOption(RENDER_SEQ_NUMBER, ID_SEQ_NUMBER, event.IsChecked());
}

void CPolyDisplay::OnMenuDrawFrontLines(wxCommandEvent& event) {
    SwitchOption(RENDER_FRONT_LINES, ID_FRONT_LINES, event.IsChecked());
}

void CPolyDisplay::OnMenuDrawBackLines(wxCommandEvent& event) {
    SwitchOption(RENDER_BACK_LINES, ID_BACK_LINES, event.IsChecked());
}
