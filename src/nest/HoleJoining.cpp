#include "nest/HoleJoining.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "nest/GridGeometry.h"

namespace nestrix {

namespace {

/// Whether the open line between two points of the rings crosses none of the edges, at most touching where
/// they begin and end.
bool SeesFreely(SGridPoint from, SGridPoint to, const CGridRing& ring) {
    for (size_t i = 0; i < ring.size(); ++i) {
        const SGridPoint a = ring[i];
        const SGridPoint b = ring[(i + 1) % ring.size()];
        if (a == from || a == to || b == from || b == to) {
            continue;
        }
        const CInt128 fromSide = Turn(a, b, from);
        const CInt128 toSide = Turn(a, b, to);
        const CInt128 aSide = Turn(from, to, a);
        const CInt128 bSide = Turn(from, to, b);
        if (aSide == 0 && bSide == 0) {
            if (std::max(a, b) < std::min(from, to) || std::max(from, to) < std::min(a, b)) {
                continue;  // farther along the same line
            }
            return false;
        }
        const bool bApart = (fromSide > 0 && toSide > 0) || (fromSide < 0 && toSide < 0) ||
                            (aSide > 0 && bSide > 0) || (aSide < 0 && bSide < 0);
        if (!bApart) {
            return false;
        }
    }
    return true;
}

/// Whether a line that leaves the ring's corner towards `to` runs inside the shape at first.
bool LeavesInward(const CGridRing& ring, size_t nCorner, SGridPoint to) {
    const SGridPoint before = ring[(nCorner + ring.size() - 1) % ring.size()];
    const SGridPoint corner = ring[nCorner];
    const SGridPoint after = ring[(nCorner + 1) % ring.size()];
    if (Turn(before, corner, after) > 0) {
        return Turn(before, corner, to) > 0 && Turn(corner, after, to) > 0;
    }
    return Turn(before, corner, to) > 0 || Turn(corner, after, to) > 0;
}

/// Where in the ring the point is a corner from which the line towards `to` leaves inward: a ring may come to
/// a point several times.
std::optional<size_t> FindCornerTowards(const CGridRing& ring, SGridPoint point, SGridPoint to) {
    for (size_t i = 0; i < ring.size(); ++i) {
        if (ring[i] == point && LeavesInward(ring, i, to)) {
            return i;
        }
    }
    return std::nullopt;
}

/// Joins a hole to the outline by a seam there and back, from its rightmost point to the nearest corner that
/// it sees (Eberly, "Triangulation by ear clipping", 2002, in a plainer form).
void JoinHole(CGridRing& outline, const CGridRing& hole, const std::vector<CGridRing>& others) {
    const SGridPoint from = *std::max_element(hole.begin(), hole.end());
    std::optional<size_t> best;
    double bestSquare = 0.0;
    for (size_t i = 0; i < outline.size(); ++i) {
        const double x = static_cast<double>(outline[i].m_nX - from.m_nX);
        const double y = static_cast<double>(outline[i].m_nY - from.m_nY);
        const double square = x * x + y * y;
        const bool bFree = (!best || square < bestSquare) && LeavesInward(outline, i, from) &&
                           SeesFreely(from, outline[i], outline) && SeesFreely(from, outline[i], hole) &&
                           std::all_of(others.begin(), others.end(), [&](const CGridRing& other) {
                               return SeesFreely(from, outline[i], other);
                           });
        if (bFree) {
            best = i;
            bestSquare = square;
        }
    }
    const std::optional<size_t> corner = best ? FindCornerTowards(hole, from, outline[*best]) : std::nullopt;
    if (!corner) {
        return;
    }
    const auto begin = hole.begin() + static_cast<std::ptrdiff_t>(*corner);
    CGridRing seam{outline[*best]};
    seam.insert(seam.end(), begin, hole.end());
    seam.insert(seam.end(), hole.begin(), begin + 1);
    outline.insert(outline.begin() + static_cast<std::ptrdiff_t>(*best), seam.begin(), seam.end());
}

}  // namespace

CGridRing JoinedToOneRing(const SGridShape& shape) {
    // Those furthest right first: their seams cannot be in the way of the others.
    std::vector<CGridRing> holes = shape.m_Holes;
    std::stable_sort(holes.begin(), holes.end(), [](const CGridRing& a, const CGridRing& b) {
        return *std::max_element(a.begin(), a.end()) > *std::max_element(b.begin(), b.end());
    });
    CGridRing ring = shape.m_Outline;
    while (!holes.empty()) {
        const CGridRing hole = holes.front();
        holes.erase(holes.begin());
        JoinHole(ring, hole, holes);
    }
    return ring;
}

}  // namespace nestrix
