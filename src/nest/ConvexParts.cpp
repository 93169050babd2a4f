#include "nest/ConvexParts.h"

#include <cmath>
#include <map>
#include <optional>
#include <utility>

#include "nest/SeparateAtTouches.h"

namespace nestrix {

namespace {

bool IsInTriangle(SGridPoint a, SGridPoint b, SGridPoint c, SGridPoint point) {
    return Turn(a, b, point) >= 0 && Turn(b, c, point) >= 0 && Turn(c, a, point) >= 0;
}

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

/// The outline with all holes joined, those furthest right first: their seams cannot be in the way of others.
CGridRing JoinedToOneRing(const SGridShape& shape) {
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

using CCorners = std::vector<size_t>;  ///< indices of points of one ring

/// Clips the ears of a ring one after the other, of those at hand the one with the shortest cut.
class CEarClipper {
public:
    explicit CEarClipper(const CGridRing& ring) : m_Ring(ring), m_Left(ring.size()) {
        for (size_t i = 0; i < ring.size(); ++i) {
            m_Left[i] = i;
        }
        m_Cuts.resize(ring.size());
        for (size_t i = 0; i < ring.size(); ++i) {
            m_Cuts[i] = FindCut(i);
        }
    }

    std::vector<CCorners> Clip() {
        std::vector<CCorners> triangles;
        while (m_Left.size() >= 3) {
            const auto ear = std::min_element(m_Cuts.begin(), m_Cuts.end());
            if (*ear == NO_EAR) {
                break;
            }
            const size_t i = static_cast<size_t>(ear - m_Cuts.begin());
            if (Turn(Before(i), At(i), After(i)) > 0) {
                triangles.push_back({m_Left[Previous(i)], m_Left[i], m_Left[Next(i)]});
            }
            Remove(i);
        }
        return triangles;
    }

private:
    static constexpr double NO_EAR = HUGE_VAL;

    [[nodiscard]] size_t Previous(size_t i) const { return i == 0 ? m_Left.size() - 1 : i - 1; }
    [[nodiscard]] size_t Next(size_t i) const { return i + 1 == m_Left.size() ? 0 : i + 1; }
    [[nodiscard]] SGridPoint At(size_t i) const { return m_Ring[m_Left[i]]; }
    [[nodiscard]] SGridPoint Before(size_t i) const { return At(Previous(i)); }
    [[nodiscard]] SGridPoint After(size_t i) const { return At(Next(i)); }

    /// The squared length of the cut that takes the corner off; NO_EAR where it cannot be taken off. Corners
    /// where the ring runs straight back are taken off first. Those in a straight line stay: others may touch
    /// there.
    [[nodiscard]] double FindCut(size_t i) const {
        const SGridPoint a = Before(i);
        const SGridPoint b = At(i);
        const SGridPoint c = After(i);
        const CInt128 turn = Turn(a, b, c);
        if (turn <= 0) {
            const bool bNeedless = turn == 0 && (a == b || b == c || a == c);
            return bNeedless ? -1.0 : NO_EAR;
        }
        for (size_t k = Next(Next(i)); k != Previous(i); k = Next(k)) {
            const SGridPoint point = At(k);
            if (point != a && point != b && point != c && IsInTriangle(a, b, c, point)) {
                return NO_EAR;
            }
        }
        const double x = static_cast<double>(c.m_nX - a.m_nX);
        const double y = static_cast<double>(c.m_nY - a.m_nY);
        return x * x + y * y;
    }

    void Remove(size_t i) {
        m_Left.erase(m_Left.begin() + static_cast<std::ptrdiff_t>(i));
        m_Cuts.erase(m_Cuts.begin() + static_cast<std::ptrdiff_t>(i));
        if (m_Left.size() < 3) {
            return;
        }
        // A corner is no ear because of some other point; that point may be gone now. All are asked again
        // only when none is left.
        const size_t nNext = i == m_Left.size() ? 0 : i;
        m_Cuts[nNext] = FindCut(nNext);
        m_Cuts[Previous(nNext)] = FindCut(Previous(nNext));
        if (*std::min_element(m_Cuts.begin(), m_Cuts.end()) == NO_EAR) {
            for (size_t k = 0; k < m_Left.size(); ++k) {
                m_Cuts[k] = FindCut(k);
            }
        }
    }

    const CGridRing& m_Ring;
    CCorners m_Left;
    std::vector<double> m_Cuts;  ///< one for each corner left
};

/// Joins convex parts along the cuts between them.
class CPartJoiner {
public:
    CPartJoiner(const CGridRing& ring, std::vector<CCorners> parts)
        : m_Ring(ring), m_Parts(std::move(parts)) {}

    std::vector<CCorners> Join() {
        // Each cut is looked at once: what cannot be joined there never can, since parts only grow.
        std::vector<std::pair<size_t, size_t>> cuts;
        for (const auto& [cut, nPart] : SidesOf()) {
            if (cut.first < cut.second) {
                cuts.push_back(cut);
            }
        }
        std::stable_sort(cuts.begin(), cuts.end(),
                         [this](const auto& a, const auto& b) { return LengthOf(a) > LengthOf(b); });
        for (const auto& [nFrom, nTo] : cuts) {
            JoinAt(nFrom, nTo);
        }
        std::erase_if(m_Parts, [](const CCorners& part) { return part.empty(); });
        return m_Parts;
    }

private:
    using CSides = std::map<std::pair<size_t, size_t>, size_t>;

    /// Which part has which side.
    [[nodiscard]] CSides SidesOf() {
        m_Sides.clear();
        for (size_t nPart = 0; nPart < m_Parts.size(); ++nPart) {
            Enter(nPart);
        }
        return m_Sides;
    }

    void Enter(size_t nPart) {
        const CCorners& part = m_Parts[nPart];
        for (size_t i = 0; i < part.size(); ++i) {
            m_Sides[{part[i], part[(i + 1) % part.size()]}] = nPart;
        }
    }

    [[nodiscard]] double LengthOf(const std::pair<size_t, size_t>& cut) const {
        const SGridPoint along = m_Ring[cut.second] - m_Ring[cut.first];
        return static_cast<double>(along.m_nX) * static_cast<double>(along.m_nX) +
               static_cast<double>(along.m_nY) * static_cast<double>(along.m_nY);
    }

    /// The corners from behind `nAfter` once around to it, without it.
    static CCorners From(const CCorners& part, size_t nAfter) {
        CCorners turned = part;
        std::rotate(turned.begin(), std::find(turned.begin(), turned.end(), nAfter), turned.end());
        return turned;
    }

    [[nodiscard]] bool IsConvex(const CCorners& part) const {
        for (size_t i = 0; i < part.size(); ++i) {
            const SGridPoint a = m_Ring[part[i]];
            const SGridPoint b = m_Ring[part[(i + 1) % part.size()]];
            const SGridPoint c = m_Ring[part[(i + 2) % part.size()]];
            if (Turn(a, b, c) < 0) {
                return false;
            }
        }
        return true;
    }

    void JoinAt(size_t nFrom, size_t nTo) {
        const auto one = m_Sides.find({nFrom, nTo});
        const auto other = m_Sides.find({nTo, nFrom});
        if (one == m_Sides.end() || other == m_Sides.end() || one->second == other->second) {
            return;
        }
        const size_t nOne = one->second;
        const size_t nOther = other->second;
        CCorners joined = From(m_Parts[nOne], nTo);          // nTo … nFrom
        const CCorners rest = From(m_Parts[nOther], nFrom);  // nFrom … nTo
        joined.insert(joined.end(), rest.begin() + 1, rest.end() - 1);
        if (!IsConvex(joined)) {
            return;
        }
        m_Parts[nOne] = std::move(joined);
        m_Parts[nOther].clear();
        m_Sides.erase({nFrom, nTo});
        m_Sides.erase({nTo, nFrom});
        Enter(nOne);
    }

    const CGridRing& m_Ring;
    std::vector<CCorners> m_Parts;
    CSides m_Sides;
};

}  // namespace

std::vector<CGridRing> CutIntoConvexParts(const SGridShape& shape) {
    std::vector<CGridRing> parts;
    for (const SGridShape& piece : SeparateAtTouches(shape)) {
        const CGridRing ring = JoinedToOneRing(piece);
        for (const CCorners& corners : CPartJoiner(ring, CEarClipper(ring).Clip()).Join()) {
            CGridRing part;
            for (const size_t nCorner : corners) {
                part.push_back(ring[nCorner]);
            }
            if (CGridRing clean = Cleaned(part, true); !clean.empty()) {
                parts.push_back(std::move(clean));
            }
        }
    }
    return parts;
}

}  // namespace nestrix
