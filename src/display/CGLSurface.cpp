#include "display/CGLSurface.h"

#include "display/OpenGLSupport.h"

using namespace nestrix;

int g_OpenGLAttribList[11] = {WX_GL_RGBA,
                              WX_GL_DOUBLEBUFFER,
                              WX_GL_MIN_RED,
                              1,
                              WX_GL_MIN_GREEN,
                              1,
                              WX_GL_MIN_BLUE,
                              1,
                              WX_GL_DEPTH_SIZE,
                              0,
                              0};

CGLSurface::CLeniency::CLeniency() : m_Previous(wxSetAssertHandler(nullptr)) {
    if (IsOpenGLAvailable()) {
        wxSetAssertHandler(m_Previous);
    }
}

CGLSurface::CLeniency::~CLeniency() {
    wxSetAssertHandler(m_Previous);
}

CGLSurface::CGLSurface(wxGLCanvas& canvas, wxWindow* pParent, const wxSize& size) : m_Canvas(canvas) {
    if (IsOpenGLAvailable()) {
        m_pContext = std::make_unique<wxGLContext>(&canvas);
    } else if (canvas.GetHandle() == nullptr) {
        // The canvas has not become a window; so that it can be placed, hidden and destroyed like any other,
        // it becomes a plain one.
        canvas.wxWindow::Create(pParent, wxID_ANY, wxPoint(0, 0), size);
    }
}

bool CGLSurface::MakeCurrent() {
    // Asked first, since the toolkit answers a canvas without a window with an assertion.
    if (m_pContext == nullptr || !m_pContext->IsOK() || !m_Canvas.IsShown() || m_Canvas.GetXWindow() == 0) {
        return false;
    }
    return m_Canvas.SetCurrent(*m_pContext);
}

void CGLSurface::SetView(float fWidth, float fHeight) {
    const wxSize size = m_Canvas.GetClientSize() * static_cast<double>(Scale());
    glViewport(0, 0, size.x, size.y);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, fWidth, 0.0, fHeight, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
}

float CGLSurface::Scale() const {
    return static_cast<float>(m_Canvas.GetContentScaleFactor());
}

void CGLSurface::SetPointSize(float fSize) const {
    glPointSize(fSize * Scale());
}

void CGLSurface::SetLineWidth(float fWidth) const {
    glLineWidth(fWidth * Scale());
}

void nestrix::SetUpFlatDrawing() {
    glDisable(GL_DEPTH_TEST);
    glShadeModel(GL_FLAT);
    glClearColor(1.0F, 1.0F, 1.0F, 0.0F);
}
