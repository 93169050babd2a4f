#include "packing/drop/SEdge.h"

#include <cmath>

namespace nestrix {

namespace {

bool IsTame(const mgVector3& position) {
    return nestrix::IsTame(position.x) && nestrix::IsTame(position.y);
}

bool AreTame(const std::vector<CPoint>& points) {
    return std::all_of(points.begin(), points.end(), [](const CPoint& p) { return IsTame(p.m_Position); });
}

bool HasItsOwnDirection(const SEdge& edge) {
    return edge.m_Direction == edge.m_End - edge.m_Start;
}

bool IsFront(const SEdge& edge) {
    return HasItsOwnDirection(edge) && edge.m_Direction.x >= 0.0F;
}

bool IsBack(const SEdge& edge) {
    return HasItsOwnDirection(edge) && edge.m_Direction.x < 0.0F;
}

}  // namespace

double SEdge::LargestRise(float fReach) const {
    const double length =
        std::abs(static_cast<double>(m_Direction.x)) + static_cast<double>(fReach) * 0x1p-22;
    return m_Direction.x < 0.0F ? -Slope() * length : Slope() * length;
}

std::vector<SEdge> EdgesOf(const CPolygon& polygon, const std::vector<CLine>& lines) {
    std::vector<SEdge> edges;
    edges.reserve(lines.size());
    for (const CLine& line : lines) {
        edges.push_back(
            {polygon.PositionOf(line.m_nStart), polygon.PositionOf(line.m_nEnd), line.m_Direction});
    }
    return edges;
}

bool IsTame(float fCoordinate) {
    constexpr float LARGEST = 1e18F;
    return std::abs(fCoordinate) <= LARGEST;
}

bool IsTame(const CPolygon& polygon) {
    const std::vector<SEdge> front = EdgesOf(polygon, polygon.m_FrontLines);
    const std::vector<SEdge> back = EdgesOf(polygon, polygon.m_BackLines);
    return IsTame(polygon.m_BoundingBoxMin) && IsTame(polygon.m_BoundingBoxMax) &&
           AreTame(polygon.m_Points) && AreTame(polygon.m_FrontPoints) && AreTame(polygon.m_BackPoints) &&
           std::all_of(front.begin(), front.end(), IsFront) && std::all_of(back.begin(), back.end(), IsBack);
}

}  // namespace nestrix
