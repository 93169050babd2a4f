#pragma once

#include <cmath>
#include <cstddef>
#include <span>
#include <vector>

#include "packing/PointVectors.h"

namespace nestrix {

/// A part of a straight line, with a number for whoever asks.
struct SSegment {
    SPoint m_From;
    SPoint m_To;
    int m_nIndex = 0;
};

/// Finds which of many segments may meet or come near each other, however long they are and wherever they
/// point: no line that is swept over the teeth of a gear meets few of them, as one does over those of a comb.
///
/// A binary tree of boxes, each turned as the segments in it lie on an average, so that a bundle of long
/// teeth has a narrow one; one segment's box is the segment. Boxes that are apart part all that is in them
/// (Gottschalk, Lin and Manocha: OBBTree, 1996).
class CSegmentTree {
public:
    /// @param segments finite.
    /// @param reach how near two segments are to come to be found, the caller's rounding included; that of
    /// the tree is looked after.
    CSegmentTree(std::vector<SSegment> segments, double reach);

    /// Calls visit(i, j) once for each two segments that come so near, and for few others, until it returns
    /// true.
    /// @return whether it did.
    template <class TVisit>
    bool VisitPairs(TVisit&& visit) const {
        // The first of two children follows its parent, so all are met by going over the list.
        for (size_t i = 0; i < m_Nodes.size(); ++i) {
            if (m_Nodes[i].m_nSecond != 0 && Visit(i + 1, *this, m_Nodes[i].m_nSecond, visit)) {
                return true;
            }
        }
        return false;
    }

    /// The same for pairs of a segment of this tree with one of another of the same reach, in this order.
    template <class TVisit>
    bool VisitPairs(const CSegmentTree& other, TVisit&& visit) const {
        return !m_Nodes.empty() && !other.m_Nodes.empty() && Visit(0, other, 0, visit);
    }

private:
    /// A box about its middle, half of the reach larger than what is in it.
    struct SNode {
        SPoint m_Middle;
        SPoint m_Along;  ///< of length 1
        double m_HalfLength = 0.0;
        double m_HalfWidth = 0.0;
        size_t m_nSecond = 0;  ///< the second child, the first is next in the list; 0 for one segment alone
        int m_nIndex = 0;      ///< of that segment
    };

    void Build(std::span<SSegment> segments, double margin);
    [[nodiscard]] static bool AreApart(const SNode& a, const SNode& b);

    template <class TVisit>
    bool Visit(size_t nMine, const CSegmentTree& other, size_t nOther, TVisit& visit) const {
        const SNode& mine = m_Nodes[nMine];
        const SNode& others = other.m_Nodes[nOther];
        if (AreApart(mine, others)) {
            return false;
        }
        if (mine.m_nSecond == 0 && others.m_nSecond == 0) {
            return visit(mine.m_nIndex, others.m_nIndex);
        }
        const bool bMine = others.m_nSecond == 0 ||
                           (mine.m_nSecond != 0 &&
                            mine.m_HalfLength + mine.m_HalfWidth >= others.m_HalfLength + others.m_HalfWidth);
        return bMine ? Visit(nMine + 1, other, nOther, visit) || Visit(mine.m_nSecond, other, nOther, visit)
                     : Visit(nMine, other, nOther + 1, visit) || Visit(nMine, other, others.m_nSecond, visit);
    }

    std::vector<SNode> m_Nodes;
};

}  // namespace nestrix
