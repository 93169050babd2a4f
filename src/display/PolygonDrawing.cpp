#include "display/CPolyDisplay.h"
#include "display/CanvasText.h"

using namespace nestrix;

namespace {

void UseBlack() {
    glColor3f(0.0F, 0.0F, 0.0F);
}

void UseGrey() {
    glColor3f(0.6F, 0.6F, 0.6F);
}

void UseRed() {
    glColor3f(1.0F, 0.0F, 0.0F);
}

void UseBlue() {
    glColor3f(0.0F, 0.0F, 1.0F);
}

void AddVertex(const mgVector3& position) {
    glVertex3f(position.x, position.y, position.z);
}

mgVector3 WorldPosition(const CPolygon& polygon, const CPoint& point) {
    return point.m_Position + polygon.m_ReferencePoint;
}

constexpr float STRIP_LEFT = CANVAS_ORIGIN.x;
constexpr float STRIP_FLOOR = CANVAS_ORIGIN.y;
constexpr float LABEL_BASE = 6.0F;   ///< world y of the labels below the strip
constexpr float LABEL_RAISE = 4.0F;  ///< labels beside the strip stand a little above their ticks
constexpr float HALF_TICK = 5.0F;
constexpr int INTERVALS_X = 8;
constexpr int INTERVALS_Y = 10;

}  // namespace

/// The overlays come in a fixed order, later ones on top.
void CPolyDisplay::DrawPolygon(const SPolyItem& item) {
    const CPolygon& polygon = item.m_Polygon;
    const mgVector3& reference = polygon.m_ReferencePoint;
    UseGrey();
    glBegin(GL_LINE_LOOP);
    for (const CPoint& point : polygon.m_Points) {
        AddVertex(WorldPosition(polygon, point));
    }
    glEnd();
    if (g_PolyOptions[RENDER_REFERENCE]) {
        UseBlack();
        m_Surface.SetPointSize(5.0F);
        glBegin(GL_POINTS);
        AddVertex(reference);
        glEnd();
        m_Surface.SetPointSize(1.0F);
    }
    DrawProfile(polygon);
    if (g_PolyOptions[RENDER_BOUNDING_BOX]) {
        UseRed();
        DrawBoundingBox(polygon);
    }
    if (g_PolyOptions[RENDER_SEQ_NUMBER]) {
        UseBlack();
        DrawCanvasText(m_Font, reference.x + 10.0F, reference.y - 10.0F, std::to_string(item.m_nSeqNumber));
    }
}

/// The lower profile in red, the upper one in blue.
void CPolyDisplay::DrawProfile(const CPolygon& polygon) {
    if (g_PolyOptions[RENDER_FRONT_LINES]) {
        UseRed();
        DrawLines(polygon, polygon.m_FrontLines);
    }
    if (g_PolyOptions[RENDER_BACK_LINES]) {
        UseBlue();
        DrawLines(polygon, polygon.m_BackLines);
    }
    if (g_PolyOptions[RENDER_FRONT_POINTS]) {
        UseRed();
        DrawPoints(polygon, polygon.m_FrontPoints);
    }
    if (g_PolyOptions[RENDER_BACK_POINTS]) {
        UseBlue();
        DrawPoints(polygon, polygon.m_BackPoints);
    }
}

void CPolyDisplay::DrawLines(const CPolygon& polygon, const std::vector<CLine>& lines) {
    m_Surface.SetLineWidth(2.0F);
    glBegin(GL_LINES);
    for (const CLine& line : lines) {
        AddVertex(polygon.PositionOf(line.m_nStart) + polygon.m_ReferencePoint);
        AddVertex(polygon.PositionOf(line.m_nEnd) + polygon.m_ReferencePoint);
    }
    glEnd();
    m_Surface.SetLineWidth(1.0F);
}

void CPolyDisplay::DrawPoints(const CPolygon& polygon, const std::vector<CPoint>& points) {
    m_Surface.SetPointSize(5.0F);
    glBegin(GL_POINTS);
    for (const CPoint& point : points) {
        AddVertex(WorldPosition(polygon, point));
    }
    glEnd();
    m_Surface.SetPointSize(1.0F);
}

void CPolyDisplay::DrawBoundingBox(const CPolygon& polygon) {
    const mgVector3 low = polygon.m_BoundingBoxMin + polygon.m_ReferencePoint;
    const mgVector3 high = polygon.m_BoundingBoxMax + polygon.m_ReferencePoint;
    glBegin(GL_LINE_LOOP);
    glVertex2f(low.x, low.y);
    glVertex2f(high.x, low.y);
    glVertex2f(high.x, high.y);
    glVertex2f(low.x, high.y);
    glEnd();
}

void CPolyDisplay::DrawMarkers() {
    m_Surface.SetPointSize(10.0F);
    UseBlack();
    glBegin(GL_POINTS);
    for (const mgVector3& marker : m_Markers) {
        AddVertex(marker);
    }
    glEnd();
    m_Surface.SetPointSize(1.0F);
}

/// The strip's walls and floor, and labels in the strip's own coordinates. Leaves the colour black.
void CPolyDisplay::DrawAxes() {
    UseBlack();
    glBegin(GL_LINES);
    glVertex2f(STRIP_LEFT, 0.0F);
    glVertex2f(STRIP_LEFT, m_fViewHeight);
    glVertex2f(m_fViewWidth - STRIP_LEFT, 0.0F);
    glVertex2f(m_fViewWidth - STRIP_LEFT, m_fViewHeight);
    glVertex2f(0.0F, STRIP_FLOOR);
    glVertex2f(m_fViewWidth, STRIP_FLOOR);
    glEnd();

    DrawAxisX();
    DrawAxisY();
}

void CPolyDisplay::DrawAxisX() {
    const float fStep = m_fStripWidth / static_cast<float>(INTERVALS_X);
    float fValue = 0.0F;
    for (int i = 0; i <= INTERVALS_X; ++i, fValue += fStep) {
        DrawCanvasText(m_Font, fValue + STRIP_LEFT, LABEL_BASE, NumberText(fValue, 1));
    }
    float fTick = STRIP_LEFT;
    glBegin(GL_LINES);
    for (int i = 0; i <= INTERVALS_X; ++i, fTick += fStep) {
        glVertex2f(fTick, STRIP_FLOOR + HALF_TICK);
        glVertex2f(fTick, STRIP_FLOOR - HALF_TICK);
    }
    glEnd();
}

void CPolyDisplay::DrawAxisY() {
    const float fStep = m_fStripHeight / static_cast<float>(INTERVALS_Y);
    float fValue = 0.0F;
    for (int i = 0; i <= INTERVALS_Y; ++i, fValue += fStep) {
        DrawCanvasText(m_Font, 0.0F, fValue + STRIP_FLOOR + LABEL_RAISE, NumberText(fValue, 1));
    }
    float fTick = STRIP_FLOOR;
    glBegin(GL_LINES);
    for (int i = 0; i <= INTERVALS_Y; ++i, fTick += fStep) {
        glVertex2f(STRIP_LEFT - HALF_TICK, fTick);
        glVertex2f(STRIP_LEFT + HALF_TICK, fTick);
    }
    glEnd();
}

/// A line across the strip where the packing ends, in the current colour, and what it stands for.
void CPolyDisplay::DrawHeight() {
    glBegin(GL_LINES);
    glVertex2f(STRIP_LEFT, m_fHeight + STRIP_FLOOR);
    glVertex2f(m_fViewWidth - STRIP_LEFT, m_fHeight + STRIP_FLOOR);
    glEnd();
    DrawCanvasText(m_Font, 0.5F * m_fViewWidth, m_fHeight + STRIP_FLOOR + 10.0F,
                   "Minimum Height = " + NumberText(m_fHeight, 2));
}
