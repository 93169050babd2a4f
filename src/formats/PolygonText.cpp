#include "formats/PolygonText.h"

#include "formats/SvgNumber.h"

namespace nestrix {

namespace {

std::string Pair(const mgVector3& at) {
    return SvgNumber(at.x).append(",").append(SvgNumber(at.y)).append("\n");
}

}  // namespace

std::string WritePolygonText(const CPolygon& polygon) {
    std::string text = std::to_string(polygon.m_Points.size()) + "\n";
    for (const CPoint& point : polygon.m_Points) {
        text.append(Pair(point.m_Position));
    }
    text.append(";").append(Pair(polygon.m_BoundingBoxMax)).append(Pair(polygon.m_BoundingBoxMin));
    return text;
}

}  // namespace nestrix
