#include "nest/GridGeometry.h"

#include <vector>

namespace nestrix {

namespace {

struct SGridEdge {
    SGridPoint m_From;
    SGridPoint m_To;

    [[nodiscard]] int64_t Left() const { return std::min(m_From.m_nX, m_To.m_nX); }
    [[nodiscard]] int64_t Right() const { return std::max(m_From.m_nX, m_To.m_nX); }
};

int SignOf(CInt128 value) {
    return (value > 0 ? 1 : 0) - (value < 0 ? 1 : 0);
}

void AppendEdges(const CGridRing& ring, std::vector<SGridEdge>& edges) {
    for (size_t i = 0; i < ring.size(); ++i) {
        edges.push_back({ring[i], ring[(i + 1) % ring.size()]});
    }
}

/// For edges on one line: whether they run in the same direction and share more than a point.
bool RunOverEachOther(const SGridEdge& a, const SGridEdge& b) {
    const SGridPoint direction = a.m_To - a.m_From;
    const auto along = [&](SGridPoint point) {
        return static_cast<CInt128>(point.m_nX - a.m_From.m_nX) * direction.m_nX +
               static_cast<CInt128>(point.m_nY - a.m_From.m_nY) * direction.m_nY;
    };
    return along(b.m_To) > along(b.m_From) && along(b.m_To) > 0 && along(b.m_From) < along(a.m_To);
}

bool Cross(const SGridEdge& a, const SGridEdge& b) {
    const int nFrom = SignOf(Turn(a.m_From, a.m_To, b.m_From));
    const int nTo = SignOf(Turn(a.m_From, a.m_To, b.m_To));
    if (nFrom == 0 && nTo == 0) {
        return RunOverEachOther(a, b);
    }
    return nFrom * nTo < 0 &&
           SignOf(Turn(b.m_From, b.m_To, a.m_From)) * SignOf(Turn(b.m_From, b.m_To, a.m_To)) < 0;
}

}  // namespace

CInt128 TwiceArea(std::span<const SGridPoint> ring) {
    CInt128 area = 0;
    for (size_t i = 1; i + 1 < ring.size(); ++i) {
        area += Turn(ring[0], ring[i], ring[i + 1]);
    }
    return area;
}

CGridRing HullOf(CGridRing points) {
    std::sort(points.begin(), points.end());
    CGridRing hull;
    for (int nSide = 0; nSide < 2; ++nSide) {
        const size_t nFirst = hull.size();
        for (const SGridPoint point : points) {
            while (hull.size() >= nFirst + 2 && Turn(hull[hull.size() - 2], hull.back(), point) <= 0) {
                hull.pop_back();
            }
            hull.push_back(point);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    return hull;
}

CGridRing Cleaned(std::span<const SGridPoint> ring, bool bCounterClockwise) {
    CGridRing clean;
    const auto dropNeedless = [&clean](SGridPoint next) {
        while (!clean.empty() &&
               (clean.back() == next ||
                (clean.size() >= 2 && Turn(clean[clean.size() - 2], clean.back(), next) == 0))) {
            clean.pop_back();
        }
    };
    for (const SGridPoint point : ring) {
        dropNeedless(point);
        clean.push_back(point);
    }
    // The same where the ring closes.
    for (bool bChanged = true; bChanged && clean.size() >= 3;) {
        const size_t nBefore = clean.size();
        const SGridPoint first = clean.front();
        dropNeedless(first);
        if (clean.size() >= 3 && Turn(clean.back(), clean[0], clean[1]) == 0) {
            clean.erase(clean.begin());
        }
        bChanged = clean.size() != nBefore;
    }
    if (clean.size() < 3) {
        return {};
    }
    if ((TwiceArea(clean) > 0) != bCounterClockwise) {
        std::reverse(clean.begin(), clean.end());
    }
    return clean;
}

SGridShape Cleaned(const SGridShape& shape) {
    SGridShape clean{Cleaned(shape.m_Outline, true), {}};
    for (const CGridRing& hole : shape.m_Holes) {
        if (CGridRing ring = Cleaned(hole, false); !ring.empty()) {
            clean.m_Holes.push_back(std::move(ring));
        }
    }
    return clean;
}

bool CrossesItself(const SGridShape& shape) {
    std::vector<SGridEdge> edges;
    AppendEdges(shape.m_Outline, edges);
    for (const CGridRing& hole : shape.m_Holes) {
        AppendEdges(hole, edges);
    }
    std::sort(edges.begin(), edges.end(),
              [](const SGridEdge& a, const SGridEdge& b) { return a.Left() < b.Left(); });
    for (size_t i = 0; i < edges.size(); ++i) {
        for (size_t k = i + 1; k < edges.size() && edges[k].Left() <= edges[i].Right(); ++k) {
            if (Cross(edges[i], edges[k])) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace nestrix
