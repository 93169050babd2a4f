#include "packing/drop/SEdge.h"

#include <cmath>

#include "geom/RoundingMargins.h"

namespace nestrix {

namespace {

bool IsMovable(const mgVector3& position) {
    return nestrix::IsMovable(position.x) && nestrix::IsMovable(position.y);
}

bool AreMovable(const std::vector<CPoint>& points) {
    return std::all_of(points.begin(), points.end(), [](const CPoint& p) { return IsMovable(p.m_Position); });
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

double SEdge::LargestRise(float fLargestX) const {
    const double length = std::abs(static_cast<double>(m_Direction.x)) + EdgeLengthMargin(fLargestX);
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

bool IsMovable(float fCoordinate) {
    constexpr float LARGEST = 1e18F;
    return std::abs(fCoordinate) <= LARGEST;
}

bool IsRegular(const CPolygon& polygon) {
    const std::vector<SEdge> front = EdgesOf(polygon, polygon.m_FrontLines);
    const std::vector<SEdge> back = EdgesOf(polygon, polygon.m_BackLines);
    return IsMovable(polygon.m_BoundingBoxMin) && IsMovable(polygon.m_BoundingBoxMax) &&
           AreMovable(polygon.m_Points) && AreMovable(polygon.m_FrontPoints) &&
           AreMovable(polygon.m_BackPoints) && std::all_of(front.begin(), front.end(), IsFront) &&
           std::all_of(back.begin(), back.end(), IsBack);
}

}  // namespace nestrix
