#include "formats/json/PolygonRing.h"

namespace nestrix {

namespace {

mgVector3 InSinglePrecision(const SPoint& point) {
    return {static_cast<float>(point.m_X), static_cast<float>(point.m_Y), 0.0F};
}

}  // namespace

CRing RingOf(const CPolygon& polygon) {
    CRing ring;
    ring.reserve(polygon.m_Points.size());
    for (const CPoint& point : polygon.m_Points) {
        ring.push_back({point.m_Position.x, point.m_Position.y});
    }
    return ring;
}

CPolygon PolygonOf(const CRing& outline, const SPoint& lowerLeft, const SPoint& upperRight) {
    CPolygon polygon;
    for (const SPoint& point : outline) {
        CPoint vertex;
        vertex.m_Position = InSinglePrecision(point);
        polygon.m_Points.push_back(vertex);
    }
    polygon.m_BoundingBoxMin = InSinglePrecision(lowerLeft);
    polygon.m_BoundingBoxMax = InSinglePrecision(upperRight);
    polygon.Process();
    return polygon;
}

}  // namespace nestrix
