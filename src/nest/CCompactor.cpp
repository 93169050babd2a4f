#include "nest/CCompactor.h"

#include <algorithm>
#include <cmath>

#include "nest/ConvexParts.h"

namespace nestrix {

namespace {

/// So many items move at a time if those are all of them, and so many if there are more.
constexpr size_t MOST_AT_ONCE = 120;
constexpr size_t ITEMS_IN_BLOCK = 48;

/// How often all blocks have their turn: the second time to mend what the first left between them.
constexpr int BLOCK_ROUNDS = 2;

/// Less overlap than this, in units, is none: the program's own tolerance, and less than rounding is given.
constexpr double NO_OVERLAP = 0.05;

/// Less overlap than this, in units, may be that a piece fits a gap on all sides, so that there is nothing
/// for rounding to take. Then it is tried without; points of the grid survive that.
constexpr double TIGHT = 20.0;

/// An item that is as wide as the strip but for this, in units, is as wide: items are not on the grid yet.
constexpr double AS_WIDE = 1e-3;

/// Rounding moves each of two items by half a unit along both axes at most. What runs along an axis is exact:
/// the items' distance is a whole number, which rounding both leaves as it is.
double LostByRounding(SPoint normal) {
    constexpr double ON_AXIS = 1e-9;
    const bool bAxis = std::abs(normal.m_X) < ON_AXIS || std::abs(normal.m_Y) < ON_AXIS;
    return bAxis ? 0.0 : std::abs(normal.m_X) + std::abs(normal.m_Y) + 0.1;
}

const SHalfPlane& BestSide(const SForbiddenRegion& region, SPoint at) {
    return *std::max_element(
        region.m_Sides.begin(), region.m_Sides.end(),
        [at](const SHalfPlane& a, const SHalfPlane& b) { return a.Outside(at) < b.Outside(at); });
}

}  // namespace

CCompactor::CCompactor(const CPackProblem& problem)
    : m_Problem(problem), m_Parts(problem.Versions().size()) {}

const CCompactor::SExactParts& CCompactor::PartsOf(size_t nVersion) {
    std::optional<SExactParts>& parts = m_Parts[nVersion];
    if (!parts) {
        parts.emplace();
        parts->m_Parts = ConvexPartsOf(m_Problem.Versions()[nVersion].m_Shape);
        for (const CConvexPart& part : parts->m_Parts) {
            SPlaneBox& box = parts->m_Boxes.emplace_back();
            for (const SPoint point : part) {
                box.Include(point);
            }
        }
    }
    return *parts;
}

SPlaneBox CCompactor::BoxOf(const SPlace& place) const {
    const SGridBox& box = m_Problem.Versions()[place.m_nVersion].m_Box;
    return BoxAt({AsPoint(box.m_Low), AsPoint(box.m_High)}, place.m_At);
}

SMovable CCompactor::MovableOf(const SPlace& place, double reach) const {
    const SGridStrip& strip = m_Problem.Strip();
    const SPlaneBox box = BoxOf(place);
    const SPoint low = AsPoint({strip.m_nMargin, strip.m_nMargin}) - box.m_Low;
    double right = static_cast<double>(strip.m_nWidth - strip.m_nMargin) - box.m_High.m_X;
    if (std::abs(right - low.m_X) < AS_WIDE) {
        right = low.m_X;
    }
    return {{{std::max(low.m_X, -reach), std::max(low.m_Y, -reach)}, {std::min(right, reach), reach}},
            box.m_High.m_Y};
}

void CCompactor::AppendRows(std::span<const SPlace> places, size_t nFirst, size_t nSecond, double reach) {
    const double spacing = static_cast<double>(m_Problem.Strip().m_nSpacing);
    const double farthest = spacing + 2.0 * std::sqrt(2.0) * reach;
    const SPlace& one = places[nFirst];
    const SPlace& other = places[nSecond];
    const SExactParts& own = PartsOf(one.m_nVersion);
    const SExactParts& its = PartsOf(other.m_nVersion);
    for (size_t i = 0; i < own.m_Parts.size(); ++i) {
        for (size_t k = 0; k < its.m_Parts.size(); ++k) {
            if (GapOf(BoxAt(own.m_Boxes[i], one.m_At), BoxAt(its.m_Boxes[k], other.m_At)) >= farthest) {
                continue;
            }
            const SForbiddenRegion region = FindForbiddenRegion(its.m_Parts[k], own.m_Parts[i], spacing);
            const SHalfPlane& side = BestSide(region, one.m_At - other.m_At);
            const double outside = side.Outside(one.m_At - other.m_At);
            if (outside < farthest) {
                const double lost = LostByRounding(side.m_Normal);
                m_Rows.push_back(
                    {m_Movable[nFirst], m_Movable[nSecond], side.m_Normal, lost - outside, lost});
            }
        }
    }
}

/// @return the overlap that is left among and around the block's items.
std::optional<double> CCompactor::CompactBlock(std::vector<SPlace>& places, std::span<const size_t> items,
                                               double reach) {
    const double farthest = static_cast<double>(m_Problem.Strip().m_nSpacing) + 2.0 * reach;
    m_Movable.assign(places.size(), NOT_MOVABLE);
    std::vector<SMovable> movable;
    SPlaneBox around;
    for (const size_t nItem : items) {
        m_Movable[nItem] = movable.size();
        movable.push_back(MovableOf(places[nItem], reach));
        around.Include(BoxOf(places[nItem]).m_Low);
        around.Include(BoxOf(places[nItem]).m_High);
    }
    std::vector<std::pair<SPlaneBox, size_t>> near;
    double fixedTop = 0.0;
    for (size_t nItem = 0; nItem < places.size(); ++nItem) {
        const SPlaneBox box = BoxOf(places[nItem]);
        fixedTop = std::max(fixedTop, m_Movable[nItem] == NOT_MOVABLE ? box.m_High.m_Y : 0.0);
        if (GapOf(box, around) < farthest) {
            near.emplace_back(box, nItem);
        }
    }
    std::stable_sort(near.begin(), near.end(),
                     [](const auto& a, const auto& b) { return a.first.m_Low.m_Y < b.first.m_Low.m_Y; });
    m_Rows.clear();
    for (size_t i = 0; i < near.size(); ++i) {
        for (size_t k = i + 1;
             k < near.size() && near[k].first.m_Low.m_Y < near[i].first.m_High.m_Y + farthest; ++k) {
            const bool bMoves =
                m_Movable[near[i].second] != NOT_MOVABLE || m_Movable[near[k].second] != NOT_MOVABLE;
            if (bMoves && GapOf(near[i].first, near[k].first) < farthest) {
                AppendRows(places, near[i].second, near[k].second, reach);
            }
        }
    }
    std::optional<SCompaction> compaction = SolveCompaction(movable, m_Rows, fixedTop, reach);
    if (!compaction) {
        return std::nullopt;
    }
    if (compaction->m_Overlap >= NO_OVERLAP && compaction->m_Overlap < TIGHT) {
        for (SKeepApart& row : m_Rows) {
            row.m_Least -= row.m_Lost;
        }
        std::optional<SCompaction> tight = SolveCompaction(movable, m_Rows, fixedTop, reach);
        compaction = tight && tight->m_Overlap < NO_OVERLAP ? tight : compaction;
    }
    for (size_t i = 0; i < items.size(); ++i) {
        const SPoint at = places[items[i]].m_At + compaction->m_Moves[i];
        places[items[i]].m_At = {std::round(at.m_X), std::round(at.m_Y)};
    }
    return compaction->m_Overlap < NO_OVERLAP ? 0.0 : compaction->m_Overlap;
}

std::optional<CCompactor::SResult> CCompactor::Compact(std::span<const SPlace> places, double reach) {
    SResult result{{places.begin(), places.end()}, 0.0};
    std::vector<size_t> order(places.size());
    for (size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    const bool bBlocks = order.size() > MOST_AT_ONCE;
    if (bBlocks) {
        std::stable_sort(order.begin(), order.end(),
                         [&](size_t a, size_t b) { return places[a].m_At.m_Y < places[b].m_At.m_Y; });
    }
    const size_t nBlock = bBlocks ? ITEMS_IN_BLOCK : MOST_AT_ONCE;
    for (int nRound = 0; nRound < (bBlocks ? BLOCK_ROUNDS : 1); ++nRound) {
        result.m_Overlap = 0.0;
        for (size_t nFirst = 0; nFirst < order.size(); nFirst += nBlock) {
            const size_t nCount = std::min(nBlock, order.size() - nFirst);
            const std::optional<double> overlap =
                CompactBlock(result.m_Places, std::span(order).subspan(nFirst, nCount), reach);
            if (!overlap) {
                return std::nullopt;
            }
            result.m_Overlap += *overlap;
        }
    }
    return result;
}

}  // namespace nestrix
