#include "geom/CEndingEdges.h"

#include <algorithm>
#include <cmath>
#include <tuple>

namespace nestrix {

CEndingEdges::CEndingEdges(const COutlineSide& outline) : m_Outline(outline) {
    m_Sloped.reserve(2 * static_cast<size_t>(outline.CountEdges()));
    for (int nEdge = 0; nEdge < outline.CountEdges(); ++nEdge) {
        if (outline.IsVertical(nEdge)) {
            m_Vertical.push_back({outline.StartOf(nEdge).x, nEdge, outline.HeightOfVertical(nEdge)});
            continue;
        }
        const mgVector3& start = outline.StartOf(nEdge);
        for (const float x : {start.x, outline.EndOf(nEdge).x}) {
            const double y = HeightOnLine(x, start, outline.Edge(nEdge).m_Direction);
            if (!std::isnan(y)) {
                m_Sloped.push_back({x, nEdge, outline.HeightOf(y)});
            }
        }
    }
    Sort(m_Vertical);
    Sort(m_Sloped);
    const auto lowest =
        std::min_element(m_Vertical.begin(), m_Vertical.end(),
                         [](const SEnd& a, const SEnd& b) { return a.m_Height < b.m_Height; });
    if (lowest != m_Vertical.end()) {
        m_nLowestVertical = lowest->m_nEdge;
    }
}

void CEndingEdges::Sort(std::vector<SEnd>& ends) {
    std::sort(ends.begin(), ends.end(), [](const SEnd& a, const SEnd& b) {
        return std::tie(a.m_fX, a.m_Height) < std::tie(b.m_fX, b.m_Height);
    });
}

bool CEndingEdges::Hide(const CPoint& vertex) const {
    if (std::isnan(vertex.m_Position.x)) {
        // Beside nothing, so that any vertical edge may hide it. No edge of its own is vertical.
        return m_nLowestVertical >= 0 && m_Outline.Hides(m_nLowestVertical, vertex);
    }
    return AnyHides(m_Vertical, vertex) || AnyHides(m_Sloped, vertex);
}

bool CEndingEdges::AnyHides(const std::vector<SEnd>& ends, const CPoint& vertex) const {
    constexpr int ENOUGH = 3;
    const float x = vertex.m_Position.x;
    auto end = std::lower_bound(ends.begin(), ends.end(), x,
                                [](const SEnd& candidate, float fX) { return candidate.m_fX < fX; });
    for (int i = 0; i < ENOUGH && end != ends.end() && end->m_fX == x; ++i, ++end) {
        if (m_Outline.Hides(end->m_nEdge, vertex)) {
            return true;
        }
    }
    return false;
}

}  // namespace nestrix
