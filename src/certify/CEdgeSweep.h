#pragma once

#include <span>
#include <vector>

#include "certify/CRangeSweep.h"
#include "certify/SBorder.h"
#include "packing/CSegmentTree.h"

namespace nestrix::certify {

/// Edges with a number each, from which those are found that meet or come near each other. They are swept
/// along the axis that leaves the fewest side by side; where those are many on either, as with long teeth in
/// all directions, a tree tells them apart.
///
/// Order of use: Add all, then ask.
class CEdgeSweep {
public:
    void Reserve(size_t nEdges) { m_Edges.reserve(nEdges); }

    /// @param nReach how near another edge is to come to be found, along either axis.
    void Add(const SBorderEdge& edge, int nIndex, int64_t nReach = 0) {
        m_Edges.push_back({edge.m_From, edge.m_To, nReach, nIndex});
    }

    /// Calls visit(i, j) once for each two edges that meet, and for others near each other, until it returns
    /// true.
    /// @return whether it did.
    template <class TVisit>
    bool VisitPairs(TVisit&& visit) const {
        const SCrowd crowd = LeastCrowd(m_Edges, {});
        if (crowd.m_Edges > FEW) {
            return AsTree(m_Edges.front().m_From, 2 * Reach()).VisitPairs(visit);
        }
        return Along(crowd.m_pAxis).VisitPairs(visit);
    }

    /// The same for pairs of an edge of this sweep with one of another, in this order.
    template <class TVisit>
    bool VisitPairs(const CEdgeSweep& other, TVisit&& visit) const {
        const SCrowd crowd = LeastCrowd(m_Edges, other.m_Edges);
        if (crowd.m_Edges > FEW && !m_Edges.empty()) {
            const SGridPoint origin = m_Edges.front().m_From;
            const int64_t nReach = Reach() + other.Reach();
            return AsTree(origin, nReach).VisitPairs(other.AsTree(origin, nReach), visit);
        }
        CRangeSweep others = other.Along(crowd.m_pAxis);
        return Along(crowd.m_pAxis).VisitPairs(others, visit);
    }

private:
    struct SEdge {
        SGridPoint m_From;
        SGridPoint m_To;
        int64_t m_nReach = 0;
        int m_nIndex = 0;
    };
    using CEdges = std::span<const SEdge>;
    using CAxis = int64_t SGridPoint::*;

    /// How many edges a line across an axis meets on average.
    struct SCrowd {
        double m_Edges = 0.0;
        CAxis m_pAxis = &SGridPoint::m_nX;
    };

    /// A sweep is quicker than a tree where it leaves no more edges than this side by side.
    static constexpr double FEW = 16.0;

    static SRange RangeOf(const SEdge& edge, CAxis pAxis);
    static SCrowd CrowdAlong(CAxis pAxis, CEdges first, CEdges second);
    static SCrowd LeastCrowd(CEdges first, CEdges second);
    [[nodiscard]] int64_t Reach() const;
    [[nodiscard]] CRangeSweep Along(CAxis pAxis) const;

    /// @param origin from which coordinates are counted: near by, they are short.
    /// @param nReach of both edges of a pair together.
    [[nodiscard]] CSegmentTree AsTree(SGridPoint origin, int64_t nReach) const;

    std::vector<SEdge> m_Edges;
};

}  // namespace nestrix::certify
