#include "geom/COutlineSide.h"
#include "geom/CPolygon.h"
#include "geom/HiddenVertices.h"

using namespace nestrix;

namespace {

bool IsHiddenByAny(const CPolygon& polygon, int nPoint, ESide side) {
    const COutlineSide outline(polygon, side);
    for (int nEdge = 0; nEdge < outline.CountEdges(); ++nEdge) {
        if (outline.Hides(nEdge, outline.Vertex(nPoint))) {
            return true;
        }
    }
    return false;
}

/// What the filters ask, answered for the whole outline at once.
class CVisibility {
public:
    explicit CVisibility(const CPolygon& polygon)
        : m_Polygon(polygon),
          m_FromBelow(FindHiddenVertices(polygon, ESide::Below)),
          m_FromAbove(FindHiddenVertices(polygon, ESide::Above)) {}

    void FilterPoints(CPolygon& polygon) const {
        std::erase_if(polygon.m_FrontPoints, [this](const CPoint& p) { return IsHidden(m_FromBelow, p); });
        std::erase_if(polygon.m_BackPoints, [this](const CPoint& p) { return IsHidden(m_FromAbove, p); });
    }

    void FilterLines(CPolygon& polygon) const {
        std::erase_if(polygon.m_FrontLines, [this](const CLine& e) { return IsHidden(m_FromBelow, e); });
        std::erase_if(polygon.m_BackLines, [this](const CLine& e) { return IsHidden(m_FromAbove, e); });
    }

private:
    /// A copy of a vertex is known by the edge that starts there.
    [[nodiscard]] bool IsHidden(const std::vector<bool>& hidden, const CPoint& vertex) const {
        return hidden[At(m_Polygon.m_Lines[At(vertex.m_nNextLine)].m_nStart)];
    }

    [[nodiscard]] static bool IsHidden(const std::vector<bool>& hidden, const CLine& edge) {
        return hidden[At(edge.m_nStart)] && hidden[At(edge.m_nEnd)];
    }

    [[nodiscard]] static size_t At(int nIndex) { return static_cast<size_t>(nIndex); }

    const CPolygon& m_Polygon;
    std::vector<bool> m_FromBelow;
    std::vector<bool> m_FromAbove;
};

}  // namespace

void CPolygon::Process() {
    BuildConnectivity();
    ProcessFrontAndBackLines();
    ProcessFrontAndBackPoints();
    const CVisibility visibility(*this);  // for both filters
    visibility.FilterPoints(*this);
    visibility.FilterLines(*this);
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
    CVisibility(*this).FilterPoints(*this);
}

void CPolygon::FilterFrontAndBackLines() {
    CVisibility(*this).FilterLines(*this);
}

bool CPolygon::DoesPointHitAnyLineDownward(int pointIndex) const {
    return IsHiddenByAny(*this, pointIndex, ESide::Below);
}

bool CPolygon::DoesPointHitAnyLineUpward(int pointIndex) const {
    return IsHiddenByAny(*this, pointIndex, ESide::Above);
}
