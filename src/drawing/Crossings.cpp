#include "drawing/Crossings.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "drawing/PathArea.h"
#include "packing/CSegmentTree.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Of the extent of all rings: points this near to each other, or to an edge, are on it.
constexpr double ROUNDING = 1e-11;

/// An edge of a ring, with the corners before and behind it.
struct SEdge {
    SPoint m_Before;
    SPoint m_From;
    SPoint m_To;
    size_t m_nRing = 0;
};

/// Whether b is within the turn counter-clockwise from a to c.
bool IsWithin(SPoint a, SPoint b, SPoint c) {
    if (Cross(a, c) > 0.0) {
        return Cross(a, b) > 0.0 && Cross(b, c) > 0.0;
    }
    return !(Cross(c, b) >= 0.0 && Cross(b, a) >= 0.0);
}

/// Tells whether two edges cross.
class CCrossingTest {
public:
    explicit CCrossingTest(double rounding) : m_Rounding(rounding) {}

    /// @return where they do.
    [[nodiscard]] std::optional<SPoint> Find(const SEdge& a, const SEdge& b) const {
        const int nFrom = Side(a, b.m_From);
        const int nTo = Side(a, b.m_To);
        const int nOtherFrom = Side(b, a.m_From);
        const int nOtherTo = Side(b, a.m_To);
        if (nFrom * nTo < 0 && nOtherFrom * nOtherTo < 0) {
            const double from = Cross(a.m_To - a.m_From, b.m_From - a.m_From);
            const double to = Cross(a.m_To - a.m_From, b.m_To - a.m_From);
            return b.m_From + (b.m_To - b.m_From) * (from / (from - to));
        }
        if (nFrom == 0 && nTo == 0) {
            return MiddleOfRun(a, b);
        }
        if (nFrom == 0 && AreSame(a.m_From, b.m_From)) {
            return CrossAtCorner(a, b) ? std::optional(b.m_From) : std::nullopt;
        }
        if (nFrom == 0 && IsBetweenEnds(a, b.m_From) && Side(a, b.m_Before) * nTo < 0) {
            return b.m_From;
        }
        if (nOtherFrom == 0 && IsBetweenEnds(b, a.m_From) && Side(b, a.m_Before) * nOtherTo < 0) {
            return a.m_From;
        }
        return std::nullopt;
    }

private:
    [[nodiscard]] bool AreSame(SPoint a, SPoint b) const { return Length(a - b) <= m_Rounding; }

    [[nodiscard]] int Side(const SEdge& edge, SPoint point) const {
        const SPoint along = edge.m_To - edge.m_From;
        const double cross = Cross(along, point - edge.m_From);
        const double least = m_Rounding * Length(along);
        return cross > least ? 1 : cross < -least ? -1 : 0;
    }

    /// Of a point on the edge's line.
    [[nodiscard]] bool IsBetweenEnds(const SEdge& edge, SPoint point) const {
        return Dot(point - edge.m_From, point - edge.m_To) < 0.0 && !AreSame(point, edge.m_From) &&
               !AreSame(point, edge.m_To);
    }

    /// Where two edges of one line run over each other in the same direction.
    [[nodiscard]] std::optional<SPoint> MiddleOfRun(const SEdge& a, const SEdge& b) const {
        const SPoint along = (a.m_To - a.m_From) * (1.0 / Length(a.m_To - a.m_From));
        const double from = std::max(0.0, Dot(along, b.m_From - a.m_From));
        const double to = std::min(Dot(along, a.m_To - a.m_From), Dot(along, b.m_To - a.m_From));
        const bool bRun = Dot(along, b.m_To - b.m_From) > 0.0 && to - from > 4.0 * m_Rounding;
        return bRun ? std::optional(a.m_From + along * ((from + to) / 2.0)) : std::nullopt;
    }

    /// Whether the line through one corner goes from one side of the line through another at the same place
    /// to its other side.
    [[nodiscard]] bool CrossAtCorner(const SEdge& a, const SEdge& b) const {
        const SPoint in = a.m_Before - a.m_From;
        const SPoint out = a.m_To - a.m_From;
        const std::array<SPoint, 2> others{b.m_Before - b.m_From, b.m_To - b.m_From};
        for (const SPoint other : others) {
            for (const SPoint mine : {in, out}) {
                const double least = m_Rounding * std::max(Length(mine), Length(other));
                if (std::abs(Cross(mine, other)) <= least && Dot(mine, other) >= 0.0) {
                    return false;
                }
            }
        }
        return IsWithin(out, others[0], in) != IsWithin(out, others[1], in);
    }

    double m_Rounding;
};

/// Compares the edges with those only that come near them.
class CCrossingSearch {
public:
    explicit CCrossingSearch(std::span<const CRing> rings) {
        SPlaneBox extent;
        for (size_t i = 0; i < rings.size(); ++i) {
            AddRing(rings[i], i);
            for (const SPoint point : rings[i]) {
                extent.Include(point);
            }
        }
        m_Rounding = extent.IsEmpty() ? 0.0 : ROUNDING * Length(extent.m_High - extent.m_Low);
    }

    [[nodiscard]] std::vector<SCrossing> Find() const {
        const CCrossingTest test(m_Rounding);
        std::map<std::pair<size_t, size_t>, SPoint> found;
        AsTree().VisitPairs([&](int i, int j) {
            const auto [nFirst, nSecond] = std::minmax(i, j);
            const SEdge& a = m_Edges[static_cast<size_t>(nFirst)];
            const SEdge& b = m_Edges[static_cast<size_t>(nSecond)];
            if (const std::optional<SPoint> at = test.Find(a, b); at.has_value()) {
                const auto [place, bNew] = found.insert({std::minmax(a.m_nRing, b.m_nRing), *at});
                if (!bNew && IsBefore(*at, place->second)) {
                    place->second = *at;
                }
            }
            return false;
        });
        std::vector<SCrossing> crossings;
        for (const auto& [rings, at] : found) {
            crossings.push_back({rings.first, rings.second, at});
        }
        return crossings;
    }

private:
    /// Repeated corners are left out: an edge has a direction.
    void AddRing(const CRing& ring, size_t nRing) {
        CRing corners;
        for (const SPoint point : ring) {
            if (corners.empty() || !(corners.back() == point)) {
                corners.push_back(point);
            }
        }
        while (corners.size() > 1 && corners.back() == corners.front()) {
            corners.pop_back();
        }
        const size_t nCorners = corners.size();
        for (size_t i = 0; i < nCorners; ++i) {
            m_Edges.push_back(
                {corners[(i + nCorners - 1) % nCorners], corners[i], corners[(i + 1) % nCorners], nRing});
        }
    }

    [[nodiscard]] CSegmentTree AsTree() const {
        std::vector<SSegment> segments;
        segments.reserve(m_Edges.size());
        for (const SEdge& edge : m_Edges) {
            segments.push_back({edge.m_From, edge.m_To, static_cast<int>(segments.size())});
        }
        return {std::move(segments), m_Rounding};
    }

    std::vector<SEdge> m_Edges;
    double m_Rounding = 0.0;
};

}  // namespace

std::vector<SCrossing> FindCrossings(std::span<const CRing> rings) {
    return CCrossingSearch(rings).Find();
}

std::vector<SCrossing> FindCrossings(const SShape& shape) {
    std::vector<CRing> rings{shape.m_Outline};
    rings.insert(rings.end(), shape.m_Holes.begin(), shape.m_Holes.end());
    for (size_t i = 0; i < rings.size(); ++i) {
        if ((TwiceSignedArea(rings[i]) > 0.0) != (i == 0)) {
            std::reverse(rings[i].begin(), rings[i].end());
        }
    }
    return FindCrossings(rings);
}

}  // namespace nestrix
