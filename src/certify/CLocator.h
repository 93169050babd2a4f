#pragma once

#include <cstddef>
#include <vector>

#include "certify/Meetings.h"

namespace nestrix::certify {

/// Where a stretch lies with regard to a border.
struct SWhere {
    int m_nWinding = 0;  ///< the border's winding number about a point just to the left of the stretch
    int m_nAlong = 0;    ///< how many of the border's edges run over the stretch in its direction
    int m_nAgainst = 0;  ///< and how many in the opposite one
};

/// Tells where stretches lie with regard to one border. Rays are sent along the axis whose lines meet fewer
/// edges of it, and the edges that one may meet are looked up: neither a sieve's holes nor the links of a
/// long chain are all asked about each other.
class CLocator {
public:
    explicit CLocator(const SBorder& border);

    /// The stretch must not cross the border, nor touch it but by running over it.
    [[nodiscard]] SWhere Locate(const SStretch& stretch) const;

private:
    /// Doubled, for the middles between two points of the grid.
    struct SRayEdge {
        SGridPoint m_From;
        SGridPoint m_To;
        int64_t m_nLow = 0;   ///< the lower end's y
        int64_t m_nHigh = 0;  ///< the upper end's
        int64_t m_nHighest =
            0;  ///< of all upper ends in the part of the list that this edge is the middle of
    };

    int64_t FindHighest(size_t nFirst, size_t nLast);
    [[nodiscard]] SGridPoint Turned(SGridPoint point) const;

    /// Calls visit(edge) for all edges in a part of the list that have a point as high.
    template <class TVisit>
    void VisitAt(int64_t nHeight, size_t nFirst, size_t nLast, const TVisit& visit) const;

    bool m_bTurned;  ///< the border is looked at turned by a quarter, so that rays always go east
    std::vector<SRayEdge> m_Edges;  ///< by their lower ends; a search tree by halves
};

}  // namespace nestrix::certify
