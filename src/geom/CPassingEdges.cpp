#include "geom/CPassingEdges.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <limits>
#include <utility>

namespace nestrix {

void CPassingEdges::SNode::AddDoubt(double doubt) {
    const double sum = static_cast<double>(m_fDoubt) + doubt;
    m_fDoubt = static_cast<float>(sum);
    if (static_cast<double>(m_fDoubt) < sum) {
        m_fDoubt = std::nextafter(m_fDoubt, std::numeric_limits<float>::infinity());
    }
}

CPassingEdges::CPassingEdges(const COutlineSide& outline, std::span<const SPassingEdge> edges,
                             std::vector<float> places)
    : m_Outline(outline),
      m_Edges(edges),
      m_Places(std::move(places)),
      m_Nodes(2 * std::bit_ceil(std::max<size_t>(m_Places.size(), 1))) {
    for (size_t i = 0; i < edges.size(); ++i) {
        Insert(static_cast<uint32_t>(i));
    }
}

void CPassingEdges::Insert(uint32_t nEdge) {
    const SPassingEdge& edge = m_Edges[nEdge];
    const auto first = std::upper_bound(m_Places.begin(), m_Places.end(), edge.m_fLowX);
    const auto end = std::lower_bound(first, m_Places.end(), edge.m_fHighX);
    if (first != end) {
        Insert(nEdge, static_cast<size_t>(first - m_Places.begin()),
               static_cast<size_t>(end - m_Places.begin()), Root());
    }
}

/// Enters the edge in the largest ranges that [nFirst, nEnd) is made of.
void CPassingEdges::Insert(uint32_t nEdge, size_t nFirst, size_t nEnd, const SRange& range) {
    if (nEnd <= range.m_nFirst || nFirst >= range.End()) {
        return;
    }
    if (nFirst <= range.m_nFirst && range.End() <= nEnd) {
        Compete(nEdge, range);
        return;
    }
    Insert(nEdge, nFirst, nEnd, range.Left());
    Insert(nEdge, nFirst, nEnd, range.Right());
}

/// Lets the edge compete for a range that it passes as a whole, down to where it is dropped or finds a place.
///
/// What is computed for a lead, by how much one edge is higher than the other, is wrong by `noise` at most,
/// and the real lead changes evenly along the range. So
/// - with a lead of two noises at both ends, the higher edge is the higher one, as computed, all along;
/// - one that is lower by three noises at an end, and not lower at the middle, is in truth lower by one noise
///   at most from the middle on, and as computed by two;
/// - one that is not lower by three noises at an end, nor lower at the middle, is in truth lower by four
///   noises at most in between, and as computed by five.
void CPassingEdges::Compete(uint32_t nEdge, SRange range) {
    while (true) {
        SNode& node = m_Nodes[range.m_nNode];
        if (node.m_nEdge == NONE) {
            node.m_nEdge = nEdge;
            return;
        }
        const SPassingEdge& edge = m_Edges[nEdge];
        const SPassingEdge& rival = m_Edges[node.m_nEdge];
        const double noise = static_cast<double>(edge.m_fNoise) + static_cast<double>(rival.m_fNoise);
        const auto leadAt = [&](size_t nPlace) {
            return edge.HeightAt(m_Places[nPlace]) - rival.HeightAt(m_Places[nPlace]);
        };
        double leadFirst = leadAt(range.m_nFirst);
        double leadLast = leadAt(range.End() - 1);
        if (leadFirst >= 2.0 * noise && leadLast >= 2.0 * noise) {
            return;
        }
        if (leadFirst <= -2.0 * noise && leadLast <= -2.0 * noise) {
            node.m_nEdge = nEdge;
            return;
        }
        double leadMiddle = leadAt(range.m_nFirst + (range.m_nCount - 1) / 2);
        if (leadMiddle < 0.0) {
            std::swap(nEdge, node.m_nEdge);
            leadFirst = -leadFirst;
            leadMiddle = -leadMiddle;
            leadLast = -leadLast;
        }
        const bool bWinsLeft = leadFirst < -3.0 * noise;
        const bool bWinsRight = leadLast < -3.0 * noise;
        const bool bSure = leadMiddle >= 2.0 * noise && (bWinsLeft || leadFirst >= 2.0 * noise) &&
                           (bWinsRight || leadLast >= 2.0 * noise);
        if (!bSure) {
            node.AddDoubt(5.0 * noise);
        }
        if (!bWinsLeft && !bWinsRight) {
            return;
        }
        range = bWinsLeft ? range.Left() : range.Right();
    }
}

CPassingEdges::EAnswer CPassingEdges::Ask(const CPoint& vertex) const {
    const auto at = std::lower_bound(m_Places.begin(), m_Places.end(), vertex.m_Position.x);
    double lowest = std::numeric_limits<double>::infinity();
    double doubt = 0.0;
    for (size_t nNode = m_Nodes.size() / 2 + static_cast<size_t>(at - m_Places.begin()); nNode > 0;
         nNode /= 2) {
        const SNode& node = m_Nodes[nNode];
        if (node.m_nEdge == NONE) {
            continue;
        }
        const SPassingEdge& edge = m_Edges[node.m_nEdge];
        if (m_Outline.Hides(edge.m_nEdge, vertex)) {
            return EAnswer::Hidden;
        }
        lowest = std::min(lowest, edge.HeightAt(vertex.m_Position.x));
        doubt += static_cast<double>(node.m_fDoubt);
    }
    const double gap = lowest - static_cast<double>(m_Outline.HeightOf(vertex.m_Position.y));
    return doubt > 0.0 && gap <= doubt ? EAnswer::Open : EAnswer::Exposed;
}

}  // namespace nestrix
