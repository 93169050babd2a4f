#include "display/CPlotter.h"

#include <wx/dcclient.h>

#include <algorithm>
#include <cmath>
#include <span>

#include "display/CanvasText.h"

using namespace nestrix;

namespace {

const wxSize FIRST_SIZE(150, 80);
constexpr float FACE_SIZE = 8.0F;
constexpr float FIRST_TOP = 50.0F;      ///< top of the y range before a value reaches it
constexpr float FIRST_SPAN_X = 150.0F;  ///< generations across until the first run
constexpr float HEADROOM = 1.2F;        ///< the range after a value touched its top, in spreads
constexpr float LABEL_OFFSET = 8.0F;    ///< labels begin left of the plot area, the upper one below its top

/// 0 for a range without extent: a run of no generations, a population size that never changes. Its points
/// are then drawn on the frame's first line.
float PixelsPerUnit(float fPixels, float fRange) {
    return fRange != 0.0F ? fPixels / fRange : 0.0F;
}

void AddVertices(unsigned int nMode, std::span<const mgVector3> positions) {
    glBegin(nMode);
    for (const mgVector3& position : positions) {
        glVertex2f(position.x, position.y);
    }
    glEnd();
}

}  // namespace

float CPlotter::m_LeftMargin = 10.0F;
float CPlotter::m_RightMargin = 10.0F;
float CPlotter::m_BottomMargin = 10.0F;
float CPlotter::m_TopMargin = 2.0F;
FTGLPixmapFont CPlotter::m_Font(FONT_FILE);
bool CPlotter::m_bFirst = true;

wxBEGIN_EVENT_TABLE(CPlotter, wxGLCanvas)
    EVT_PAINT(CPlotter::OnPaint)
    EVT_ERASE_BACKGROUND(CPlotter::OnEraseBackground)
wxEND_EVENT_TABLE()

CPlotter::CPlotter(wxWindow* parent) : CPlotter(parent, CGLSurface::CLeniency()) {}

CPlotter::CPlotter(wxWindow* pParent, const CGLSurface::CLeniency&)
    : wxGLCanvas(pParent, -1, g_OpenGLAttribList, wxPoint(0, 0), FIRST_SIZE, 0, "GLCanvas", wxNullPalette),
      m_Surface(*this, pParent, FIRST_SIZE) {}

CPlotter::~CPlotter() = default;

void CPlotter::Initialize() {
    Show(true);
    Reshape(FIRST_SPAN_X);
    Refresh(true, nullptr);
}

/// The plotter must be current.
void CPlotter::SetUp() {
    SetUpFlatDrawing();
    glHint(GL_POINT_SMOOTH_HINT, GL_NICEST);
    glHint(GL_LINE_SMOOTH_HINT, GL_NICEST);
    m_Surface.SetLineWidth(1.0F);
    glClear(GL_COLOR_BUFFER_BIT);
    SetFaceSize(m_Font, FACE_SIZE * m_Surface.Scale());
    m_bSetUp = true;
}

void CPlotter::Reshape(float fMaxX) {
    const wxSize size = GetClientSize();
    m_fMaxX = fMaxX;
    m_fWidth = static_cast<float>(size.x);
    m_fHeight = static_cast<float>(size.y);
    ComputeScales();
    m_bViewPending = !m_Surface.MakeCurrent();
    if (m_bViewPending) {
        return;
    }
    if (!m_bSetUp) {
        SetUp();
    }
    m_Surface.SetView(m_fWidth, m_fHeight);
}

/// The x scale leaves both margins free, yet the plot area begins at the right margin: they are equal.
void CPlotter::ComputeScales() {
    m_fScaleX = PixelsPerUnit(m_fWidth - m_LeftMargin - m_RightMargin, m_fMaxX);
    m_fScaleY = PixelsPerUnit(m_fHeight - m_BottomMargin - m_TopMargin, m_fMaxY - m_fMinY);
}

void CPlotter::Reset() {
    m_Points.clear();
    m_fMaxY = FIRST_TOP;
    m_fMaxValue = 0.0F;
    m_fMinY = 0.0F;
}

/// Values that are not finite are compared like any other, so the comparisons must stay as they are: what is
/// not a number is neither above a bound nor at or above it.
void CPlotter::AddValue(float fGeneration, float fValue) {
    if (m_Points.empty()) {
        m_fMaxValue = fValue;
        m_fMinY = fValue;
        Reshape(m_fMaxX);
    }
    if (fValue > m_fMaxValue) {
        m_fMaxValue = fValue;
    }
    if (m_fMaxY > m_fMaxValue) {
        if (!(fValue >= m_fMinY)) {
            m_fMinY = fValue;
            Reshape(m_fMaxX);
        }
    } else {
        if (fValue < m_fMinY) {
            m_fMinY = fValue;
        }
        m_fMaxY = m_fMinY + (m_fMaxValue - m_fMinY) * HEADROOM;
        Reshape(m_fMaxX);
    }
    m_Points.push_back({fGeneration, fValue, 0.0F});
}

void CPlotter::OnPaint(wxPaintEvent&) {
    const wxPaintDC dc(this);  // Nothing is drawn with it, but without one the toolkit paints for ever.
    if (m_bViewPending) {
        Reshape(m_fMaxX);
    }
    if (!m_Surface.MakeCurrent()) {
        return;
    }
    glClear(GL_COLOR_BUFFER_BIT);
    DrawFrame();
    DrawCurve();
    DrawLabels();
    SwapBuffers();
}

/// Nothing: the paint covers the whole canvas, and erasing it first would flicker.
void CPlotter::OnEraseBackground(wxEraseEvent&) {}

void CPlotter::DrawFrame() {
    const float fTop = m_fHeight - m_TopMargin;
    const float fRight = m_fWidth - m_RightMargin;
    glColor3f(0.0F, 0.0F, 0.0F);
    glBegin(GL_LINES);
    glVertex2f(0.0F, m_BottomMargin);
    glVertex2f(m_fWidth, m_BottomMargin);
    glVertex2f(m_RightMargin, 0.0F);
    glVertex2f(m_RightMargin, m_fHeight);
    glVertex2f(0.0F, fTop);
    glVertex2f(m_fWidth, fTop);
    glVertex2f(fRight, 0.0F);
    glVertex2f(fRight, m_fHeight);
    glEnd();
}

void CPlotter::DrawCurve() {
    // Thinned in physical pixels, drawn in the view's: the two differ by the screen's scale.
    const float fScale = m_Surface.Scale();
    m_Thinner.Begin(static_cast<int>(std::ceil(m_fHeight * fScale)));
    for (const mgVector3& point : m_Points) {
        const float fX = point.x * m_fScaleX + m_RightMargin;
        const float fY = (point.y - m_fMinY) * m_fScaleY + m_BottomMargin;
        m_Thinner.Add({fX * fScale, fY * fScale, 0.0F});
    }
    m_Thinner.End();
    glPushMatrix();
    glScalef(1.0F / fScale, 1.0F / fScale, 1.0F);
    AddVertices(GL_LINE_STRIP, m_Thinner.Line());
    m_Surface.SetPointSize(2.0F);
    AddVertices(GL_POINTS, m_Thinner.Dots());
    m_Surface.SetPointSize(1.0F);
    glPopMatrix();
}

void CPlotter::DrawLabels() {
    const float fLeft = m_RightMargin - LABEL_OFFSET;
    DrawCanvasText(m_Font, fLeft, m_BottomMargin, NumberText(m_fMinY, 1));
    const float fTop = (m_fMaxY - m_fMinY) * m_fScaleY + m_BottomMargin;
    DrawCanvasText(m_Font, fLeft, fTop - LABEL_OFFSET, NumberText(m_fMaxY, 1));
}
