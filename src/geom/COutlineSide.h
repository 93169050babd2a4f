#pragma once

#include "geom/CPolygon.h"
#include "geom/HitTest.h"

namespace nestrix {

/// Which way a vertex looks for edges that hide it.
enum class ESide { Below, Above };

/// An outline as its vertices see it when they look to one side. Heights are measured so that an edge hides
/// what lies at its height or higher: as they are for those who look down, negated for those who look up.
/// Rounding does not mind the sign.
///
/// The edges and their links to the vertices are those that CPolygon::BuildConnectivity makes.
class COutlineSide {
public:
    /// The polygon must outlive this object.
    COutlineSide(const CPolygon& polygon, ESide side) : m_Polygon(polygon), m_bBelow(side == ESide::Below) {}

    [[nodiscard]] int CountVertices() const { return static_cast<int>(m_Polygon.m_Points.size()); }
    [[nodiscard]] int CountEdges() const { return static_cast<int>(m_Polygon.m_Lines.size()); }

    [[nodiscard]] const CPoint& Vertex(int nVertex) const {
        return m_Polygon.m_Points[static_cast<size_t>(nVertex)];
    }
    [[nodiscard]] const CLine& Edge(int nEdge) const { return m_Polygon.m_Lines[static_cast<size_t>(nEdge)]; }
    [[nodiscard]] const mgVector3& StartOf(int nEdge) const {
        return m_Polygon.PositionOf(Edge(nEdge).m_nStart);
    }
    [[nodiscard]] const mgVector3& EndOf(int nEdge) const { return m_Polygon.PositionOf(Edge(nEdge).m_nEnd); }

    /// Whether the edge hides the vertex: the definition. Adjacent edges never do.
    [[nodiscard]] bool Hides(int nEdge, const CPoint& vertex) const;

    /// Whether the edge is one of the profile on this side, before filtering.
    [[nodiscard]] bool IsOfProfile(int nEdge) const { return Edge(nEdge).m_bFront == m_bBelow; }

    [[nodiscard]] bool IsVertical(int nEdge) const { return Edge(nEdge).m_Direction.x == 0.0F; }

    /// The height from which on a vertical edge hides what lies at its x.
    [[nodiscard]] double HeightOfVertical(int nEdge) const;

    /// A y of this polygon as a height.
    template <class TNumber>
    [[nodiscard]] TNumber HeightOf(TNumber y) const {
        return m_bBelow ? y : -y;
    }

private:
    const CPolygon& m_Polygon;
    bool m_bBelow;
};

}  // namespace nestrix
