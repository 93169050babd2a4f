#pragma once

#include <algorithm>
#include <cmath>
#include <limits>
#include <numeric>
#include <span>
#include <vector>

#include "Polygon.h"

/// Finds the edges of one outline that may span a given x, in time proportional to their number and the
/// logarithm of all edges, where a scan would look at every edge for every vertex.
///
/// The edges lie sorted by their lower x; above them a binary tree holds the highest x of each range. Edges
/// with a coordinate that is not a number are reported for every x, as the span test lets them pass.
class CEdgeIndex {
public:
    explicit CEdgeIndex(const CPolygon& polygon)
        : m_Edges(polygon.m_Lines.size()), m_Low(m_Edges.size()), m_Reach(2 * LeafCount(), LOWEST) {
        std::vector<SRange> ranges(m_Edges.size());
        for (size_t i = 0; i < ranges.size(); ++i) {
            ranges[i] = RangeOf(polygon, polygon.m_Lines[i]);
        }
        std::iota(m_Edges.begin(), m_Edges.end(), 0);
        std::sort(m_Edges.begin(), m_Edges.end(), [&ranges](int a, int b) {
            return ranges[static_cast<size_t>(a)].m_fLow < ranges[static_cast<size_t>(b)].m_fLow;
        });
        const size_t nLeaves = LeafCount();
        for (size_t i = 0; i < m_Edges.size(); ++i) {
            const SRange& range = ranges[static_cast<size_t>(m_Edges[i])];
            m_Low[i] = range.m_fLow;
            m_Reach[nLeaves + i] = range.m_fHigh;
        }
        for (size_t nNode = nLeaves - 1; nNode > 0; --nNode) {
            m_Reach[nNode] = std::max(m_Reach[2 * nNode], m_Reach[2 * nNode + 1]);
        }
    }

    /// Calls `test(edge)` with the indices of the edges that may span x, until it returns true.
    /// @return whether it did.
    template <class TTest>
    [[nodiscard]] bool AnyAt(float x, TTest&& test) const {
        if (std::isnan(x)) {
            return std::any_of(m_Edges.begin(), m_Edges.end(), test);
        }
        return AnyBelow(1, 0, LeafCount(), x, test);
    }

private:
    struct SRange {
        float m_fLow;
        float m_fHigh;
    };

    static constexpr float LOWEST = -std::numeric_limits<float>::infinity();

    static SRange RangeOf(const CPolygon& polygon, const CLine& line) {
        const float fStart = polygon.PositionOf(line.m_nStart).x;
        const float fEnd = polygon.PositionOf(line.m_nEnd).x;
        if (std::isnan(fStart) || std::isnan(fEnd)) {
            return {LOWEST, -LOWEST};
        }
        return {std::min(fStart, fEnd), std::max(fStart, fEnd)};
    }

    [[nodiscard]] size_t LeafCount() const {
        size_t nLeaves = 1;
        while (nLeaves < m_Edges.size()) {
            nLeaves *= 2;
        }
        return nLeaves;
    }

    /// The part of AnyAt below one node of the tree, whose leaves are the edges [nFirst, nFirst + nCount).
    template <class TTest>
    [[nodiscard]] bool AnyBelow(size_t nNode, size_t nFirst, size_t nCount, float x, TTest& test) const {
        if (nFirst >= m_Edges.size() || m_Reach[nNode] < x || m_Low[nFirst] > x) {
            return false;
        }
        if (nCount == 1) {
            return test(m_Edges[nFirst]);
        }
        const size_t nHalf = nCount / 2;
        return AnyBelow(2 * nNode, nFirst, nHalf, x, test) ||
               AnyBelow(2 * nNode + 1, nFirst + nHalf, nHalf, x, test);
    }

    std::vector<int> m_Edges;    ///< edge indices, sorted by lower x
    std::vector<float> m_Low;    ///< the lower x of each of them
    std::vector<float> m_Reach;  ///< the tree's highest x: the root at 1, the leaves in the second half
};
