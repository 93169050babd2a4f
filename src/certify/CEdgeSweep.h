#pragma once

#include <span>
#include <vector>

#include "certify/CRangeSweep.h"
#include "certify/SBorder.h"

namespace nestrix::certify {

/// Edges with a number each, from which those are found that meet or come near each other. They are swept
/// along an axis or across the direction that most of them have, whichever leaves the fewest side by side:
/// the long teeth of a comb are told apart at whatever angle they stand.
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
        return Along(BestDirection(m_Edges, {})).VisitPairs(visit);
    }

    /// The same for pairs of an edge of this sweep with one of another, in this order.
    template <class TVisit>
    bool VisitPairs(const CEdgeSweep& other, TVisit&& visit) const {
        const SGridPoint direction = BestDirection(m_Edges, other.m_Edges);
        CRangeSweep others = other.Along(direction);
        return Along(direction).VisitPairs(others, visit);
    }

private:
    struct SEdge {
        SGridPoint m_From;
        SGridPoint m_To;
        int64_t m_nReach = 0;
        int m_nIndex = 0;
    };
    using CEdges = std::span<const SEdge>;

    static SRange RangeOf(const SEdge& edge, SGridPoint direction);
    static double CrowdAlong(SGridPoint direction, CEdges first, CEdges second);
    static SGridPoint AcrossMost(CEdges first, CEdges second);
    static SGridPoint BestDirection(CEdges first, CEdges second);
    [[nodiscard]] CRangeSweep Along(SGridPoint direction) const;

    std::vector<SEdge> m_Edges;
};

}  // namespace nestrix::certify
