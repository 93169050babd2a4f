#include "nest/CPartPairs.h"

#include <algorithm>
#include <cmath>

namespace nestrix {

namespace {

/// Parts that are nearer than this share of the reach, beyond the spacing, have a row from the beginning.
constexpr double NEAR_SHARE = 0.1;

/// Of two items not more than so many have one: of those between two long and winding borders, the few that
/// overlap most take the others with them, or leave them room beside another line.
constexpr size_t MOST_OF_TWO_ITEMS = 4;

/// Rounding may bring two boxes nearer by so much, in units.
constexpr double BOXES_NEARER = 1.0;

/// Rounding moves each of two items by half a unit along both axes at most. What runs along an axis is exact:
/// the items' distance is a whole number, which rounding both leaves as it is.
double LostByRounding(SPoint normal) {
    constexpr double ON_AXIS = 1e-9;
    const bool bAxis = std::abs(normal.m_X) < ON_AXIS || std::abs(normal.m_Y) < ON_AXIS;
    return bAxis ? 0.0 : std::abs(normal.m_X) + std::abs(normal.m_Y) + 0.1;
}

double GapOf(const SPlaneBox& box, SPoint point) {
    return GapOf(box, SPlaneBox{point, point});
}

SPoint MoveOf(size_t nNumber, std::span<const SPoint> moves) {
    return nNumber == NOT_MOVABLE ? SPoint{0.0, 0.0} : moves[nNumber];
}

}  // namespace

CPartPairs::CPartPairs(CExactParts& parts, double spacing, double reach)
    : m_Parts(parts),
      m_Spacing(spacing),
      m_Farthest(2.0 * reach + BOXES_NEARER),
      m_Near(NEAR_SHARE * reach) {}

void CPartPairs::Add(const SItem& first, const SItem& second) {
    const size_t nBefore = m_Waiting.size();
    m_Items.push_back({first.m_nNumber, second.m_nNumber, first.m_At - second.m_At});
    const SPoint at = m_Items.back().m_At;
    const CExactParts::SParts& all = m_Parts.Of(first.m_nVersion);
    const CExactParts::SParts& others = m_Parts.Of(second.m_nVersion);
    const std::vector<const CExactParts::SPart*> reachable = Reachable(others, -at, all.m_Box);
    for (const CExactParts::SPart* pOwn : Reachable(all, at, others.m_Box)) {
        for (const CExactParts::SPart* pIts : reachable) {
            AddParts(*pOwn, *pIts);
        }
    }
    std::stable_sort(m_Waiting.begin() + static_cast<std::ptrdiff_t>(nBefore), m_Waiting.end(),
                     [](const SPartPair& a, const SPartPair& b) { return a.m_Apart < b.m_Apart; });
}

/// The parts of an item at a place that can reach a box in a compaction.
std::vector<const CExactParts::SPart*> CPartPairs::Reachable(const CExactParts::SParts& parts, SPoint at,
                                                             const SPlaneBox& box) const {
    std::vector<const CExactParts::SPart*> reachable;
    for (const CExactParts::SPart& part : parts.m_Parts) {
        if (GapOf(BoxAt(part.m_Box, at), box) - m_Spacing < m_Farthest) {
            reachable.push_back(&part);
        }
    }
    return reachable;
}

void CPartPairs::AddParts(const CExactParts::SPart& own, const CExactParts::SPart& its) {
    const SPoint at = m_Items.back().m_At;
    const SPlaneBox forbidden{its.m_Box.m_Low - own.m_Box.m_High, its.m_Box.m_High - own.m_Box.m_Low};
    const double gap = GapOf(forbidden, at) - m_Spacing;
    if (gap < m_Farthest) {
        SPartPair parts{m_Items.size() - 1, &own.m_Part, &its.m_Part, forbidden, gap, std::nullopt};
        if (gap < m_Near) {
            parts.m_Apart = SideOf(parts).Outside(at);
        }
        m_Waiting.push_back(parts);
    }
}

const SHalfPlane& CPartPairs::SideOf(SPartPair& parts) const {
    if (!parts.m_Side) {
        parts.m_Side =
            FindFarthestSide(*parts.m_pSecond, *parts.m_pFirst, m_Spacing, m_Items[parts.m_nPair].m_At);
    }
    return *parts.m_Side;
}

double CPartPairs::Lost(const SHalfPlane& side) const {
    return m_bTight ? 0.0 : LostByRounding(side.m_Normal);
}

/// The other sides are worth a look: after the moves, another one may separate the parts.
bool CPartPairs::Overlap(SPartPair& parts, SPoint at) const {
    if (GapOf(parts.m_Forbidden, at) >= m_Spacing + BOXES_NEARER) {
        return false;
    }
    const SHalfPlane& known = SideOf(parts);
    if (known.Outside(at) >= Lost(known)) {
        return false;
    }
    const SHalfPlane side = FindFarthestSide(*parts.m_pSecond, *parts.m_pFirst, m_Spacing, at);
    return side.Outside(at) < Lost(side);
}

SKeepApart CPartPairs::RowOf(SPartPair& parts) const {
    const SItemPair& items = m_Items[parts.m_nPair];
    const SHalfPlane& side = SideOf(parts);
    const double lost = Lost(side);
    return {parts.m_nPair, items.m_nFirst, items.m_nSecond, side.m_Normal, lost - side.Outside(items.m_At),
            lost};
}

template <class TIsTaken>
std::vector<SKeepApart> CPartPairs::Take(TIsTaken&& isTaken) {
    std::vector<SKeepApart> rows;
    std::erase_if(m_Waiting, [&](SPartPair& parts) {
        const bool bTaken = isTaken(parts);
        if (bTaken) {
            rows.push_back(RowOf(parts));
        }
        return bTaken;
    });
    return rows;
}

std::vector<SKeepApart> CPartPairs::TakeNear() {
    std::vector<size_t> taken(m_Items.size(), 0);
    return Take([&](SPartPair& parts) {
        return parts.m_Apart < m_Near && taken[parts.m_nPair]++ < MOST_OF_TWO_ITEMS;
    });
}

std::vector<SKeepApart> CPartPairs::TakeOverlapping(std::span<const SPoint> moves) {
    return Take([&](SPartPair& parts) {
        const SItemPair& items = m_Items[parts.m_nPair];
        const SPoint move = MoveOf(items.m_nFirst, moves) - MoveOf(items.m_nSecond, moves);
        return Overlap(parts, items.m_At + move);
    });
}

}  // namespace nestrix
