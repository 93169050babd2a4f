#include "tests/support/PolygonMaking.h"

#include <algorithm>
#include <cstdio>

#include "base/CNumericLocale.h"

namespace nestrix::support {
namespace {

/// Nine digits tell every float from its neighbours.
std::string PairText(const mgVector3& point) {
    char text[64];
    std::snprintf(text, sizeof text, "%.9g,%.9g\n", static_cast<double>(point.x),
                  static_cast<double>(point.y));
    return text;
}

}  // namespace

CPolygon MakeRawPolygon(const Outline& outline, const mgVector3& boxMin, const mgVector3& boxMax) {
    CPolygon polygon;
    for (const mgVector3& position : outline) {
        CPoint point;
        point.m_Position = position;
        polygon.m_Points.push_back(point);
    }
    polygon.m_BoundingBoxMin = boxMin;
    polygon.m_BoundingBoxMax = boxMax;
    return polygon;
}

CPolygon MakePolygon(const Outline& outline, const mgVector3& boxMin, const mgVector3& boxMax) {
    CPolygon polygon = MakeRawPolygon(outline, boxMin, boxMax);
    polygon.Process();
    return polygon;
}

CPolygon MakePolygon(const Outline& outline) {
    if (outline.empty()) {
        return MakePolygon(outline, {}, {});
    }
    mgVector3 low = outline.front();
    mgVector3 high = outline.front();
    for (const mgVector3& vertex : outline) {
        low = {std::min(low.x, vertex.x), std::min(low.y, vertex.y), 0.0F};
        high = {std::max(high.x, vertex.x), std::max(high.y, vertex.y), 0.0F};
    }
    return MakePolygon(outline, low, high);
}

CPolygon MakeSquare(float fSide) {
    return MakeRectangle(fSide, fSide);
}

CPolygon MakeRectangle(float fWidth, float fHeight) {
    return MakePolygon(RectangleOutline(fWidth, fHeight));
}

CPolygon PlacedAt(CPolygon polygon, float fX, float fY) {
    polygon.m_ReferencePoint = {fX, fY, 0.0F};
    return polygon;
}

std::string PolygonFileText(const CPolygon& polygon) {
    const CNumericLocale numericLocale;
    std::string text = std::to_string(polygon.m_Points.size()) + "\n";
    for (const CPoint& point : polygon.m_Points) {
        text += PairText(point.m_Position);
    }
    return text + ";" + PairText(polygon.m_BoundingBoxMax) + PairText(polygon.m_BoundingBoxMin);
}

}  // namespace nestrix::support
