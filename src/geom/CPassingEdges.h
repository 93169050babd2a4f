#pragma once

#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "geom/COutlineSide.h"
#include "geom/SPassingEdge.h"

namespace nestrix {

/// The edges of an outline that pass over or under places between their ends: answers for a vertex whether
/// one of them hides it, without a look at all of them.
///
/// A Li Chao tree: over each range of places a node keeps one edge, that is the lowest at the middle of the
/// range of those that came by. The loser of a comparison goes on to the half in which it may yet win; it can
/// cross the winner only once. So the edge that is lowest at a place lies on the way from the root to it.
///
/// Heights are computed with rounding, so that an edge dropped for good may turn out lower than the one it
/// lost to, by a little. What it may be lower by is added to its node's doubt; and since the winner may lose
/// further down in turn, no edge is lower than the lowest on the way less all the doubts on the way. Where a
/// vertex lies below the lowest, but not by more than these, the answer is open.
class CPassingEdges {
public:
    enum class EAnswer { Hidden, Exposed, Open };

    /// @param outline must outlive this object, and so must the edges.
    /// @param edges those to choose from.
    /// @param places where vertices will be asked for, in ascending order, without repetition; finite.
    CPassingEdges(const COutlineSide& outline, std::span<const SPassingEdge> edges,
                  std::vector<float> places);

    /// @param vertex at one of the places; its height is a number.
    [[nodiscard]] EAnswer Ask(const CPoint& vertex) const;

private:
    static constexpr uint32_t NONE = std::numeric_limits<uint32_t>::max();

    struct SNode {
        uint32_t m_nEdge = NONE;  ///< among the edges to choose from
        float m_fDoubt = 0.0F;

        void AddDoubt(double doubt);
    };

    /// A node and the places below it.
    struct SRange {
        size_t m_nNode;
        size_t m_nFirst;
        size_t m_nCount;

        [[nodiscard]] size_t End() const { return m_nFirst + m_nCount; }
        [[nodiscard]] SRange Left() const { return {2 * m_nNode, m_nFirst, m_nCount / 2}; }
        [[nodiscard]] SRange Right() const {
            return {2 * m_nNode + 1, m_nFirst + m_nCount / 2, m_nCount / 2};
        }
    };

    [[nodiscard]] SRange Root() const { return {1, 0, m_Nodes.size() / 2}; }
    void Insert(uint32_t nEdge);
    void Insert(uint32_t nEdge, size_t nFirst, size_t nEnd, const SRange& range);
    void Compete(uint32_t nEdge, SRange range);

    const COutlineSide& m_Outline;
    std::span<const SPassingEdge> m_Edges;
    std::vector<float> m_Places;
    std::vector<SNode> m_Nodes;  ///< the root at 1, the leaves in the second half
};

}  // namespace nestrix
