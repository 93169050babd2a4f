#pragma once

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <numeric>
#include <vector>

#include "Polygon.h"

/// Finds edges of one outline at a point's x, at or below or at or above it, without a scan of them all.
///
/// The edges lie sorted by their lower x; above them a binary tree holds, for each range of edges, how far
/// they reach in x and between which heights they lie. Edges that have no sound bounds, since a coordinate is
/// not finite, are offered for every point, as the span test lets them pass.
class CEdgeIndex {
public:
    explicit CEdgeIndex(const CPolygon& polygon)
        : m_Edges(polygon.m_Lines.size()),
          m_LowX(m_Edges.size()),
          m_nLeaves(std::bit_ceil(std::max<size_t>(m_Edges.size(), 1))),
          m_Nodes(2 * m_nLeaves, NOTHING) {
        std::vector<SBounds> bounds;
        bounds.reserve(m_Edges.size());
        for (const CLine& edge : polygon.m_Lines) {
            bounds.push_back(BoundsOf(polygon, edge));
        }
        std::iota(m_Edges.begin(), m_Edges.end(), 0);
        std::sort(m_Edges.begin(), m_Edges.end(), [&bounds](int a, int b) {
            return bounds[static_cast<size_t>(a)].m_fLowX < bounds[static_cast<size_t>(b)].m_fLowX;
        });
        for (size_t i = 0; i < m_Edges.size(); ++i) {
            m_Nodes[m_nLeaves + i] = bounds[static_cast<size_t>(m_Edges[i])];
            m_LowX[i] = m_Nodes[m_nLeaves + i].m_fLowX;
        }
        for (size_t nNode = m_nLeaves - 1; nNode > 0; --nNode) {
            m_Nodes[nNode] = Union(m_Nodes[2 * nNode], m_Nodes[2 * nNode + 1]);
        }
    }

    /// Calls `test(edge)` with the indices of the edges that may span the point's x and lie at or below it,
    /// until it returns true.
    /// @return whether it did.
    template <class TTest>
    [[nodiscard]] bool AnyBelow(const mgVector3& point, const TTest& test) const {
        return Any(
            point, [&point](const SBounds& bounds) { return bounds.m_fLowY <= point.y; }, test);
    }

    /// As AnyBelow, for the edges at or above the point.
    template <class TTest>
    [[nodiscard]] bool AnyAbove(const mgVector3& point, const TTest& test) const {
        return Any(
            point, [&point](const SBounds& bounds) { return bounds.m_fHighY >= point.y; }, test);
    }

private:
    struct SBounds {
        float m_fLowX;
        float m_fHighX;
        float m_fLowY;
        float m_fHighY;
    };

    static constexpr float INFINITE = std::numeric_limits<float>::infinity();
    static constexpr SBounds NOTHING{INFINITE, -INFINITE, INFINITE, -INFINITE};
    static constexpr SBounds EVERYTHING{-INFINITE, INFINITE, -INFINITE, INFINITE};

    static SBounds BoundsOf(const CPolygon& polygon, const CLine& edge) {
        const mgVector3& start = polygon.PositionOf(edge.m_nStart);
        const mgVector3& end = polygon.PositionOf(edge.m_nEnd);
        const float fSum = start.x + start.y + end.x + end.y + edge.m_Direction.x + edge.m_Direction.y;
        if (!std::isfinite(fSum)) {
            return EVERYTHING;
        }
        // A height on the edge comes from its rounded direction, so it may lie a few roundings outside the
        // ends.
        const float fSlack = (std::abs(start.y) + std::abs(end.y)) * 0x1p-20F;
        return {std::min(start.x, end.x), std::max(start.x, end.x), std::min(start.y, end.y) - fSlack,
                std::max(start.y, end.y) + fSlack};
    }

    static SBounds Union(const SBounds& a, const SBounds& b) {
        return {std::min(a.m_fLowX, b.m_fLowX), std::max(a.m_fHighX, b.m_fHighX),
                std::min(a.m_fLowY, b.m_fLowY), std::max(a.m_fHighY, b.m_fHighY)};
    }

    template <class TMayHit, class TTest>
    [[nodiscard]] bool Any(const mgVector3& point, const TMayHit& mayHit, const TTest& test) const {
        if (std::isnan(point.x) || std::isnan(point.y)) {
            return std::any_of(m_Edges.begin(), m_Edges.end(), test);
        }
        return AnyUnder(1, 0, m_nLeaves, point.x, mayHit, test);
    }

    /// The part of Any under one node of the tree, whose leaves are the edges [nFirst, nFirst + nCount).
    template <class TMayHit, class TTest>
    [[nodiscard]] bool AnyUnder(size_t nNode, size_t nFirst, size_t nCount, float fX, const TMayHit& mayHit,
                                const TTest& test) const {
        const SBounds& bounds = m_Nodes[nNode];
        if (nFirst >= m_Edges.size() || m_LowX[nFirst] > fX || bounds.m_fHighX < fX || !mayHit(bounds)) {
            return false;
        }
        if (nCount == 1) {
            return test(m_Edges[nFirst]);
        }
        const size_t nHalf = nCount / 2;
        return AnyUnder(2 * nNode, nFirst, nHalf, fX, mayHit, test) ||
               AnyUnder(2 * nNode + 1, nFirst + nHalf, nHalf, fX, mayHit, test);
    }

    std::vector<int> m_Edges;   ///< edge indices, sorted by lower x
    std::vector<float> m_LowX;  ///< the lower x of each of them
    size_t m_nLeaves;
    std::vector<SBounds> m_Nodes;  ///< the root at 1, the leaves in the second half
};
