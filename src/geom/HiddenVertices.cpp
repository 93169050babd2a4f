#include "geom/HiddenVertices.h"

#include <algorithm>
#include <cmath>
#include <span>

#include "geom/CEndingEdges.h"
#include "geom/CPassingEdges.h"
#include "geom/SPassingEdge.h"

namespace nestrix {

namespace {

/// With no more edges than this, a look at each is the quickest.
constexpr size_t FEW = 32;

class CHiddenVertices {
public:
    CHiddenVertices(const CPolygon& polygon, ESide side)
        : m_Outline(polygon, side), m_Hidden(polygon.m_Points.size()) {}

    std::vector<bool> Find() {
        std::vector<int> vertices = CandidateVertices();
        if (static_cast<size_t>(m_Outline.CountEdges()) <= FEW) {
            LookAtAll(vertices);
            return m_Hidden;
        }
        LookAtEnding(vertices);
        LookAtPassing(PassingEdges(), std::move(vertices));
        return m_Hidden;
    }

private:
    static size_t At(int i) { return static_cast<size_t>(i); }

    [[nodiscard]] std::vector<int> CandidateVertices() const {
        std::vector<int> vertices;
        for (int i = 0; i < m_Outline.CountVertices(); ++i) {
            const CPoint& vertex = m_Outline.Vertex(i);
            if (m_Outline.IsOfProfile(vertex.m_nPrevLine) || m_Outline.IsOfProfile(vertex.m_nNextLine)) {
                vertices.push_back(i);
            }
        }
        return vertices;
    }

    [[nodiscard]] std::vector<SPassingEdge> PassingEdges() const {
        std::vector<SPassingEdge> edges;
        edges.reserve(At(m_Outline.CountEdges()));
        for (int nEdge = 0; nEdge < m_Outline.CountEdges(); ++nEdge) {
            if (const std::optional<SPassingEdge> edge = SPassingEdge::Make(m_Outline, nEdge)) {
                edges.push_back(*edge);
            }
        }
        return edges;
    }

    void LookAtAll(const std::vector<int>& vertices) {
        for (const int i : vertices) {
            for (int nEdge = 0; nEdge < m_Outline.CountEdges() && !m_Hidden[At(i)]; ++nEdge) {
                m_Hidden[At(i)] = m_Outline.Hides(nEdge, m_Outline.Vertex(i));
            }
        }
    }

    /// Keeps the vertices that edges in passing may yet hide. Nothing passes at infinity, and only what is
    /// vertical hides what is not a number.
    void LookAtEnding(std::vector<int>& vertices) {
        const CEndingEdges ending(m_Outline);
        std::erase_if(vertices, [&](int i) {
            const CPoint& vertex = m_Outline.Vertex(i);
            m_Hidden[At(i)] = ending.Hide(vertex);
            return m_Hidden[At(i)] || !std::isfinite(vertex.m_Position.x) || std::isnan(vertex.m_Position.y);
        });
    }

    /// Where rounding leaves the answer open, asks each half of the edges alone, and so on: fewer and fewer
    /// edges are left that come close to the vertex.
    void LookAtPassing(std::span<const SPassingEdge> edges, std::vector<int> vertices) {
        if (edges.size() <= FEW) {
            LookAtEach(edges, vertices);
            return;
        }
        KeepOpen(edges, vertices);
        if (vertices.empty()) {
            return;
        }
        const size_t nHalf = edges.size() / 2;
        LookAtPassing(edges.first(nHalf), vertices);
        std::erase_if(vertices, [this](int i) { return m_Hidden[At(i)]; });
        LookAtPassing(edges.subspan(nHalf), std::move(vertices));
    }

    void LookAtEach(std::span<const SPassingEdge> edges, const std::vector<int>& vertices) {
        for (const int i : vertices) {
            m_Hidden[At(i)] = std::any_of(edges.begin(), edges.end(), [&](const SPassingEdge& edge) {
                return m_Outline.Hides(edge.m_nEdge, m_Outline.Vertex(i));
            });
        }
    }

    void KeepOpen(std::span<const SPassingEdge> edges, std::vector<int>& vertices) {
        const CPassingEdges passing(m_Outline, edges, PlacesOf(vertices));
        std::erase_if(vertices, [&](int i) {
            const CPassingEdges::EAnswer answer = passing.Ask(m_Outline.Vertex(i));
            m_Hidden[At(i)] = answer == CPassingEdges::EAnswer::Hidden;
            return answer != CPassingEdges::EAnswer::Open;
        });
    }

    [[nodiscard]] std::vector<float> PlacesOf(const std::vector<int>& vertices) const {
        std::vector<float> places;
        places.reserve(vertices.size());
        for (const int i : vertices) {
            places.push_back(m_Outline.Vertex(i).m_Position.x);
        }
        std::sort(places.begin(), places.end());
        places.erase(std::unique(places.begin(), places.end()), places.end());
        return places;
    }

    COutlineSide m_Outline;
    std::vector<bool> m_Hidden;
};

}  // namespace

std::vector<bool> FindHiddenVertices(const CPolygon& polygon, ESide side) {
    return CHiddenVertices(polygon, side).Find();
}

}  // namespace nestrix
