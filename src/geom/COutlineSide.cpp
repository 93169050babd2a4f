#include "geom/COutlineSide.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace nestrix {

bool COutlineSide::Hides(int nEdge, const CPoint& vertex) const {
    if (nEdge == vertex.m_nPrevLine || nEdge == vertex.m_nNextLine) {
        return false;
    }
    const auto hits = m_bBelow ? DoesPointHitDownward : DoesPointHitUpward;
    return hits(vertex.m_Position, StartOf(nEdge), EndOf(nEdge), Edge(nEdge).m_Direction, nullptr);
}

double COutlineSide::HeightOfVertical(int nEdge) const {
    const float fStart = StartOf(nEdge).y;
    const float fEnd = EndOf(nEdge).y;
    const float fNearest = m_bBelow ? std::min(fStart, fEnd) : std::max(fStart, fEnd);
    // No point lies on the far side of what is not a number.
    return std::isnan(fNearest) ? -std::numeric_limits<double>::infinity()
                                : static_cast<double>(HeightOf(fNearest));
}

}  // namespace nestrix
