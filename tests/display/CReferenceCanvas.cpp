#include "tests/display/CReferenceCanvas.h"

#include <gtest/gtest.h>

#include "tests/display/EventPump.h"

namespace nestrix::support {

namespace {

constexpr int ATTRIBUTES[] = {WX_GL_RGBA, WX_GL_DOUBLEBUFFER, WX_GL_DEPTH_SIZE, 0, 0};

void Use(SColour colour) {
    glColor3ub(colour.m_nRed, colour.m_nGreen, colour.m_nBlue);
}

void Draw(unsigned int nMode, SColour colour, const std::vector<mgVector3>& positions) {
    Use(colour);
    glBegin(nMode);
    for (const mgVector3& position : positions) {
        glVertex2f(position.x, position.y);
    }
    glEnd();
}

}  // namespace

CReferenceCanvas::CReferenceCanvas(wxWindow* pParent, const wxSize& size, unsigned int nFaceSize)
    : m_pCanvas(new wxGLCanvas(pParent, wxID_ANY, ATTRIBUTES, wxPoint(0, 0), size)),
      m_Context(m_pCanvas),
      m_Font("arial.ttf") {
    m_Font.FaceSize(nFaceSize * static_cast<unsigned int>(Scale()), 72);
    // Only then has its window got its size.
    bool bPainted = false;
    const auto onPaint = [&bPainted](wxPaintEvent&) { bPainted = true; };
    m_pCanvas->Bind(wxEVT_PAINT, onPaint);
    EXPECT_TRUE(PumpUntil([&bPainted] { return bPainted; }));
    m_pCanvas->Unbind(wxEVT_PAINT, onPaint);
}

void CReferenceCanvas::Begin(float fWidth, float fHeight, bool bRoundDots) {
    m_pCanvas->SetCurrent(m_Context);
    const wxSize size = m_pCanvas->GetClientSize() * m_pCanvas->GetContentScaleFactor();
    glViewport(0, 0, size.x, size.y);
    glMatrixMode(GL_PROJECTION);
    glLoadIdentity();
    glOrtho(0.0, fWidth, 0.0, fHeight, -1.0, 1.0);
    glMatrixMode(GL_MODELVIEW);
    glLoadIdentity();
    glDisable(GL_DEPTH_TEST);
    glHint(GL_POINT_SMOOTH_HINT, GL_NICEST);
    bRoundDots ? glEnable(GL_POINT_SMOOTH) : glDisable(GL_POINT_SMOOTH);
    glClearColor(1.0F, 1.0F, 1.0F, 0.0F);
    glClear(GL_COLOR_BUFFER_BIT);
}

void CReferenceCanvas::Segment(SColour colour, float fX1, float fY1, float fX2, float fY2, float fWidth) {
    glLineWidth(fWidth * Scale());
    Draw(GL_LINES, colour, {{fX1, fY1, 0.0F}, {fX2, fY2, 0.0F}});
}

void CReferenceCanvas::Loop(SColour colour, const std::vector<mgVector3>& corners) {
    glLineWidth(Scale());
    Draw(GL_LINE_LOOP, colour, corners);
}

void CReferenceCanvas::Curve(SColour colour, const std::vector<mgVector3>& points) {
    glLineWidth(Scale());
    Draw(GL_LINE_STRIP, colour, points);
}

void CReferenceCanvas::Dot(SColour colour, float fX, float fY, float fSize) {
    glPointSize(fSize * Scale());
    Draw(GL_POINTS, colour, {{fX, fY, 0.0F}});
}

void CReferenceCanvas::Text(SColour colour, float fX, float fY, const std::string& text) {
    Use(colour);
    glRasterPos2f(fX, fY);
    m_Font.Render(text.c_str());
}

CPicture CReferenceCanvas::Picture() const {
    const wxSize size = m_pCanvas->GetClientSize() * m_pCanvas->GetContentScaleFactor();
    return {size.x, size.y};
}

float CReferenceCanvas::Scale() const {
    return static_cast<float>(m_pCanvas->GetContentScaleFactor());
}

}  // namespace nestrix::support
