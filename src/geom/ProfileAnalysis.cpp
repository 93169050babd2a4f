#include "EdgeIndex.h"
#include "HitTest.h"
#include "Polygon.h"

namespace {

using THitTest = bool (*)(const mgVector3&, const mgVector3&, const mgVector3&, const mgVector3&, float*);

/// Does the edge, unless it is adjacent to the vertex, lie where the hit test looks?
bool IsHiddenBy(const CPolygon& polygon, const CPoint& vertex, int nEdge, THitTest hits) {
    if (nEdge == vertex.m_nPrevLine || nEdge == vertex.m_nNextLine) {
        return false;
    }
    const CLine& edge = polygon.m_Lines[static_cast<size_t>(nEdge)];
    return hits(vertex.m_Position, polygon.PositionOf(edge.m_nStart), polygon.PositionOf(edge.m_nEnd),
                edge.m_Direction, nullptr);
}

bool IsHiddenByAny(const CPolygon& polygon, int nPoint, THitTest hits) {
    const CPoint& vertex = polygon.m_Points[static_cast<size_t>(nPoint)];
    for (int nEdge = 0; nEdge < static_cast<int>(polygon.m_Lines.size()); ++nEdge) {
        if (IsHiddenBy(polygon, vertex, nEdge, hits)) {
            return true;
        }
    }
    return false;
}

/// The filters ask whether vertices are hidden for every profile vertex and both ends of every profile edge;
/// the index answers without a scan of the whole outline.
class CVisibility {
public:
    enum class ESide { Below, Above };

    /// Hidden means hidden by edges on this side.
    CVisibility(const CPolygon& polygon, const CEdgeIndex& index, ESide side)
        : m_pPolygon(&polygon), m_pIndex(&index), m_Side(side) {}

    [[nodiscard]] bool IsHidden(const CPoint& vertex) const {
        const THitTest hits = m_Side == ESide::Below ? DoesPointHitDownward : DoesPointHitUpward;
        const auto hides = [&](int nEdge) { return IsHiddenBy(*m_pPolygon, vertex, nEdge, hits); };
        return m_Side == ESide::Below ? m_pIndex->AnyBelow(vertex.m_Position, hides)
                                      : m_pIndex->AnyAbove(vertex.m_Position, hides);
    }

    [[nodiscard]] bool IsHidden(const CLine& edge) const {
        return IsHidden(m_pPolygon->m_Points[static_cast<size_t>(edge.m_nStart)]) &&
               IsHidden(m_pPolygon->m_Points[static_cast<size_t>(edge.m_nEnd)]);
    }

private:
    const CPolygon* m_pPolygon;
    const CEdgeIndex* m_pIndex;
    ESide m_Side;
};

template <class TEntry>
void DropHidden(std::vector<TEntry>& profile, const CVisibility& visibility) {
    std::erase_if(profile, [&visibility](const TEntry& entry) { return visibility.IsHidden(entry); });
}

}  // namespace

void CPolygon::Process() {
    BuildConnectivity();
    ProcessFrontAndBackLines();
    ProcessFrontAndBackPoints();
    FilterFrontAndBackPoints();
    FilterFrontAndBackLines();
}

void CPolygon::BuildConnectivity() {
    const size_t nPoints = m_Points.size();
    for (size_t i = 0; i < nPoints; ++i) {
        const size_t nNext = (i + 1) % nPoints;
        const int nEdge = static_cast<int>(i);
        m_Lines.push_back(
            {nEdge, static_cast<int>(nNext), false, m_Points[nNext].m_Position - m_Points[i].m_Position});
        m_Points[i].m_nNextLine = nEdge;
        m_Points[nNext].m_nPrevLine = nEdge;
    }
}

void CPolygon::ProcessFrontAndBackLines() {
    for (CLine& edge : m_Lines) {
        // "not left of up" rather than "right of up": vertical edges are front edges.
        edge.m_bFront = !(SideValue(edge.m_Direction, MG_VECTOR3_Y) < 0.0F);
        (edge.m_bFront ? m_FrontLines : m_BackLines).push_back(edge);
    }
}

void CPolygon::ProcessFrontAndBackPoints() {
    for (CPoint& vertex : m_Points) {
        const CLine& incoming = m_Lines[static_cast<size_t>(vertex.m_nPrevLine)];
        const CLine& outgoing = m_Lines[static_cast<size_t>(vertex.m_nNextLine)];
        if (incoming.m_bFront != outgoing.m_bFront) {
            vertex.m_bFront = true;
            vertex.m_bBack = true;
            m_FrontPoints.push_back(vertex);
            m_BackPoints.push_back(vertex);
            continue;
        }
        // Raw rises of the unnormalised directions, deliberately not slopes: the filter decides in the end.
        const float fRiseIn = DotProduct(MG_VECTOR3_Y, incoming.m_Direction);
        const float fRiseOut = DotProduct(MG_VECTOR3_Y, outgoing.m_Direction);
        if (incoming.m_bFront && fRiseOut >= fRiseIn) {
            vertex.m_bFront = true;
            vertex.m_bBack = false;
            m_FrontPoints.push_back(vertex);
        } else if (!incoming.m_bFront && fRiseOut <= fRiseIn) {
            vertex.m_bFront = false;
            vertex.m_bBack = true;
            m_BackPoints.push_back(vertex);
        }
    }
}

void CPolygon::FilterFrontAndBackPoints() {
    const CEdgeIndex index(*this);
    DropHidden(m_FrontPoints, CVisibility(*this, index, CVisibility::ESide::Below));
    DropHidden(m_BackPoints, CVisibility(*this, index, CVisibility::ESide::Above));
}

void CPolygon::FilterFrontAndBackLines() {
    const CEdgeIndex index(*this);
    DropHidden(m_FrontLines, CVisibility(*this, index, CVisibility::ESide::Below));
    DropHidden(m_BackLines, CVisibility(*this, index, CVisibility::ESide::Above));
}

bool CPolygon::DoesPointHitAnyLineDownward(int pointIndex) const {
    return IsHiddenByAny(*this, pointIndex, DoesPointHitDownward);
}

bool CPolygon::DoesPointHitAnyLineUpward(int pointIndex) const {
    return IsHiddenByAny(*this, pointIndex, DoesPointHitUpward);
}
