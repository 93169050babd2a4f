#include "tests/display/ReferenceDrawing.h"

#include <array>
#include <cstdio>

namespace nestrix::support {

namespace {

std::string Formatted(const char* pFormat, float fValue) {
    std::array<char, 100> text{};
    std::snprintf(text.data(), text.size(), pFormat, static_cast<double>(fValue));
    return text.data();
}

void DrawProfileLines(CReferenceCanvas& canvas, SColour colour, const CPolygon& polygon,
                      const std::vector<CLine>& lines) {
    for (const CLine& line : lines) {
        const mgVector3 start = polygon.PositionOf(line.m_nStart) + polygon.m_ReferencePoint;
        const mgVector3 end = polygon.PositionOf(line.m_nEnd) + polygon.m_ReferencePoint;
        canvas.Segment(colour, start.x, start.y, end.x, end.y, 2.0F);
    }
}

void DrawProfilePoints(CReferenceCanvas& canvas, SColour colour, const CPolygon& polygon,
                       const std::vector<CPoint>& points) {
    for (const CPoint& point : points) {
        const mgVector3 position = point.m_Position + polygon.m_ReferencePoint;
        canvas.Dot(colour, position.x, position.y, 5.0F);
    }
}

void DrawItem(CReferenceCanvas& canvas, const SPolyItem& item) {
    const CPolygon& polygon = item.m_Polygon;
    const mgVector3& reference = polygon.m_ReferencePoint;
    std::vector<mgVector3> outline;
    for (const CPoint& point : polygon.m_Points) {
        outline.push_back(point.m_Position + reference);
    }
    canvas.Loop(GREY, outline);
    if (g_PolyOptions[0]) {
        canvas.Dot(BLACK, reference.x, reference.y, 5.0F);
    }
    if (g_PolyOptions[2]) {
        DrawProfileLines(canvas, RED, polygon, polygon.m_FrontLines);
    }
    if (g_PolyOptions[3]) {
        DrawProfileLines(canvas, BLUE, polygon, polygon.m_BackLines);
    }
    if (g_PolyOptions[4]) {
        DrawProfilePoints(canvas, RED, polygon, polygon.m_FrontPoints);
    }
    if (g_PolyOptions[5]) {
        DrawProfilePoints(canvas, BLUE, polygon, polygon.m_BackPoints);
    }
    if (g_PolyOptions[1]) {
        const mgVector3 low = polygon.m_BoundingBoxMin + reference;
        const mgVector3 high = polygon.m_BoundingBoxMax + reference;
        canvas.Loop(RED, {low, {high.x, low.y, 0.0F}, high, {low.x, high.y, 0.0F}});
    }
    if (g_PolyOptions[6]) {
        canvas.Text(BLACK, reference.x + 10.0F, reference.y - 10.0F, std::to_string(item.m_nSeqNumber));
    }
}

void DrawAxes(CReferenceCanvas& canvas) {
    canvas.Segment(BLACK, 40.0F, 0.0F, 40.0F, 720.0F);
    canvas.Segment(BLACK, 440.0F, 0.0F, 440.0F, 720.0F);
    canvas.Segment(BLACK, 0.0F, 20.0F, 480.0F, 20.0F);
    for (int i = 0; i <= 8; ++i) {
        const float fX = 50.0F * static_cast<float>(i);
        canvas.Text(BLACK, fX + 40.0F, 6.0F, Formatted("%1.1f", fX));
        canvas.Segment(BLACK, fX + 40.0F, 25.0F, fX + 40.0F, 15.0F);
    }
    for (int i = 0; i <= 10; ++i) {
        const float fY = 60.0F * static_cast<float>(i);
        canvas.Text(BLACK, 0.0F, fY + 24.0F, Formatted("%1.1f", fY));
        canvas.Segment(BLACK, 35.0F, fY + 20.0F, 45.0F, fY + 20.0F);
    }
}

}  // namespace

CPicture PackingAsDefined(CReferenceCanvas& canvas, const CPolyDisplay& display) {
    canvas.Begin(480.0F, 720.0F, true);
    for (const SPolyItem& item : display.m_PolyItems) {
        DrawItem(canvas, item);
    }
    for (const mgVector3& marker : display.m_Markers) {
        canvas.Dot(BLACK, marker.x, marker.y, 10.0F);
    }
    DrawAxes(canvas);
    const float fHeight = display.m_fHeight;
    canvas.Segment(BLACK, 40.0F, fHeight + 20.0F, 440.0F, fHeight + 20.0F);
    canvas.Text(BLACK, 240.0F, fHeight + 30.0F, Formatted("Minimum Height = %0.2f", fHeight));
    return canvas.Picture();
}

CPicture PlotAsDefined(CReferenceCanvas& canvas, const CPlotter& plotter) {
    const wxSize size = plotter.GetClientSize();
    const auto fWidth = static_cast<float>(size.x);
    const auto fHeight = static_cast<float>(size.y);
    const float fRange = plotter.m_fMaxY - plotter.m_fMinY;
    const float fScaleX = (fWidth - 20.0F) / plotter.m_fMaxX;
    const float fScaleY = fRange > 0.0F ? (fHeight - 12.0F) / fRange : 0.0F;
    canvas.Begin(fWidth, fHeight, false);
    canvas.Segment(BLACK, 0.0F, 10.0F, fWidth, 10.0F);
    canvas.Segment(BLACK, 10.0F, 0.0F, 10.0F, fHeight);
    canvas.Segment(BLACK, 0.0F, fHeight - 2.0F, fWidth, fHeight - 2.0F);
    canvas.Segment(BLACK, fWidth - 10.0F, 0.0F, fWidth - 10.0F, fHeight);
    std::vector<mgVector3> curve;
    for (const mgVector3& point : plotter.m_Points) {
        curve.push_back({point.x * fScaleX + 10.0F, (point.y - plotter.m_fMinY) * fScaleY + 10.0F, 0.0F});
    }
    canvas.Curve(BLACK, curve);
    for (const mgVector3& position : curve) {
        canvas.Dot(BLACK, position.x, position.y, 2.0F);
    }
    canvas.Text(BLACK, 2.0F, 10.0F, Formatted("%0.1f", plotter.m_fMinY));
    canvas.Text(BLACK, 2.0F, fRange * fScaleY + 2.0F, Formatted("%0.1f", plotter.m_fMaxY));
    return canvas.Picture();
}

}  // namespace nestrix::support
