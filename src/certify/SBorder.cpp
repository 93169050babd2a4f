#include "certify/SBorder.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <utility>

#include "certify/CEdgeSweep.h"
#include "certify/Wide.h"

namespace nestrix::certify {

namespace {

/// Whether the ring goes round counter-clockwise, all in all. The sum wraps around where a wild outline winds
/// thousands of times about the largest of areas; that one is unsound whichever way it is walked.
bool IsCounterClockwise(const CGridRing& ring) {
    CUnsignedWide sum = 0;
    for (size_t i = 0; i + 1 < ring.size(); ++i) {
        sum += static_cast<CUnsignedWide>(Cross(ring[i] - ring[0], ring[i + 1] - ring[0]));
    }
    return static_cast<CWide>(sum) >= 0;
}

void AddRing(std::vector<SBorderEdge>& edges, const CGridRing& ring, bool bCounterClockwise, int nChain) {
    const bool bForward = IsCounterClockwise(ring) == bCounterClockwise;
    const size_t nCount = ring.size();
    for (size_t i = 0; i < nCount; ++i) {
        const SGridPoint from = bForward ? ring[i] : ring[nCount - 1 - i];
        const SGridPoint to = bForward ? ring[(i + 1) % nCount] : ring[(2 * nCount - 2 - i) % nCount];
        if (from != to) {
            edges.push_back({from, to, nChain});
        }
    }
}

/// Whether two edges on one line share more than a point.
bool RunTogether(const SBorderEdge& a, const SBorderEdge& b) {
    const SGridBox first = BoxOf(a);
    const SGridBox second = BoxOf(b);
    const bool bLong =
        std::min(first.m_High.m_nX, second.m_High.m_nX) > std::max(first.m_Low.m_nX, second.m_Low.m_nX) ||
        std::min(first.m_High.m_nY, second.m_High.m_nY) > std::max(first.m_Low.m_nY, second.m_Low.m_nY);
    return bLong && SideOf(a.m_From, a.m_To, b.m_From) == 0 && SideOf(a.m_From, a.m_To, b.m_To) == 0;
}

/// Whether a point lies on an edge between its ends.
bool IsWithin(const SBorderEdge& edge, SGridPoint point) {
    return point != edge.m_From && point != edge.m_To && Contains(BoxOf(edge), point) &&
           SideOf(edge.m_From, edge.m_To, point) == 0;
}

using CCuts = std::vector<std::pair<int, SGridPoint>>;

/// Where edges that run over others are to be cut so that the parts either coincide or do not. Edges that run
/// over others in the same direction are cut as well: one of the two may have a counterpart. And where the
/// end of one lies on another: beside such a point, the inside need not be on all of one side.
CCuts FindCuts(const std::vector<SBorderEdge>& edges) {
    CCuts cuts;
    CEdgeSweep sweep;
    sweep.Reserve(edges.size());
    for (size_t i = 0; i < edges.size(); ++i) {
        sweep.Add(edges[i], static_cast<int>(i));
    }
    sweep.VisitPairs([&](int i, int j) {
        const SBorderEdge& a = edges[static_cast<size_t>(i)];
        const SBorderEdge& b = edges[static_cast<size_t>(j)];
        if (RunTogether(a, b)) {
            cuts.insert(cuts.end(), {{i, b.m_From}, {i, b.m_To}, {j, a.m_From}, {j, a.m_To}});
            return false;
        }
        for (const SGridPoint end : {a.m_From, a.m_To}) {
            if (IsWithin(b, end)) {
                cuts.emplace_back(j, end);
            }
        }
        for (const SGridPoint end : {b.m_From, b.m_To}) {
            if (IsWithin(a, end)) {
                cuts.emplace_back(i, end);
            }
        }
        return false;
    });
    return cuts;
}

/// The edges with those that have cuts in parts. Cuts beside an edge are passed over.
std::vector<SBorderEdge> CutUp(const std::vector<SBorderEdge>& edges, CCuts& cuts) {
    std::sort(cuts.begin(), cuts.end());
    std::vector<SBorderEdge> parts;
    auto cut = cuts.begin();
    for (size_t i = 0; i < edges.size(); ++i) {
        std::vector<SGridPoint> points{edges[i].m_From, edges[i].m_To};
        const SGridBox box = BoxOf(edges[i]);
        for (; cut != cuts.end() && cut->first == static_cast<int>(i); ++cut) {
            if (Contains(box, cut->second)) {
                points.push_back(cut->second);
            }
        }
        // Points of one line are in the same order along it and by coordinates, or in the reverse one.
        std::sort(points.begin(), points.end());
        points.erase(std::unique(points.begin(), points.end()), points.end());
        if (edges[i].m_To < edges[i].m_From) {
            std::reverse(points.begin(), points.end());
        }
        for (size_t j = 0; j + 1 < points.size(); ++j) {
            parts.push_back({points[j], points[j + 1], edges[i].m_nChain});
        }
    }
    return parts;
}

/// Takes away as many parts as there are counterparts of opposite direction. What is left is numbered anew:
/// a chain ends where a part is missing.
void RemoveSeams(std::vector<SBorderEdge>& edges) {
    std::map<std::pair<SGridPoint, SGridPoint>, int> balance;
    for (const SBorderEdge& edge : edges) {
        ++balance[{edge.m_From, edge.m_To}];
        --balance[{edge.m_To, edge.m_From}];
    }
    std::vector<SBorderEdge> kept;
    int nChain = 0;
    bool bJoined = false;
    for (size_t i = 0; i < edges.size(); ++i) {
        bJoined = bJoined && edges[i].m_nChain == edges[i - 1].m_nChain;
        int& nLeft = balance[{edges[i].m_From, edges[i].m_To}];
        const bool bKept = nLeft > 0;
        if (bKept) {
            --nLeft;
            nChain += bJoined ? 0 : 1;
            kept.push_back({edges[i].m_From, edges[i].m_To, nChain});
        }
        bJoined = bKept;
    }
    edges = std::move(kept);
}

}  // namespace

std::vector<SBorderEdge> DirectedEdges(const SGridShape& shape) {
    std::vector<SBorderEdge> edges;
    edges.reserve(shape.m_Outline.size());
    int nChain = 0;
    AddRing(edges, shape.m_Outline, true, nChain);
    for (const CGridRing& hole : shape.m_Holes) {
        AddRing(edges, hole, false, ++nChain);
    }
    return edges;
}

SBorder BorderOf(const SGridShape& shape) {
    SBorder border{DirectedEdges(shape), {}};
    CCuts cuts = FindCuts(border.m_Edges);
    if (!cuts.empty()) {
        border.m_Edges = CutUp(border.m_Edges, cuts);
        RemoveSeams(border.m_Edges);
    }
    for (const SBorderEdge& edge : border.m_Edges) {
        border.m_Box.Include(edge.m_From);
        border.m_Box.Include(edge.m_To);
    }
    return border;
}

}  // namespace nestrix::certify
