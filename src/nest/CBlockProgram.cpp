#include "nest/CBlockProgram.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace nestrix {

namespace {

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

bool HasNoOverlap(const SCompaction& compaction) {
    return compaction.m_Overlap < NO_OVERLAP;
}

}  // namespace

CBlockProgram::CBlockProgram(const CPackProblem& problem, CExactParts& parts, std::span<const SPlace> places,
                             std::span<const size_t> items, double reach)
    : m_Problem(problem),
      m_Parts(parts),
      m_Places(places),
      m_Reach(reach),
      m_Farthest(static_cast<double>(problem.Strip().m_nSpacing) + 2.0 * reach),
      m_Numbers(places.size(), NOT_MOVABLE) {
    AddItems(items);
    AddPairs();
}

SPlaneBox CBlockProgram::BoxOf(size_t nItem) const {
    const SPlace& place = m_Places[nItem];
    const SGridBox& box = m_Problem.Versions()[place.m_nVersion].m_Box;
    return BoxAt({AsPoint(box.m_Low), AsPoint(box.m_High)}, place.m_At);
}

SMovable CBlockProgram::MovableOf(size_t nItem) const {
    const SGridStrip& strip = m_Problem.Strip();
    const SPlaneBox box = BoxOf(nItem);
    const SPoint low = AsPoint({strip.m_nMargin, strip.m_nMargin}) - box.m_Low;
    double right = static_cast<double>(strip.m_nWidth - strip.m_nMargin) - box.m_High.m_X;
    if (std::abs(right - low.m_X) < AS_WIDE) {
        right = low.m_X;
    }
    return {{{std::max(low.m_X, -m_Reach), std::max(low.m_Y, -m_Reach)}, {std::min(right, m_Reach), m_Reach}},
            box.m_High.m_Y};
}

void CBlockProgram::AddItems(std::span<const size_t> items) {
    for (const size_t nItem : items) {
        m_Numbers[nItem] = m_Movable.size();
        m_Movable.push_back(MovableOf(nItem));
        m_Around.Include(BoxOf(nItem).m_Low);
        m_Around.Include(BoxOf(nItem).m_High);
    }
    for (size_t nItem = 0; nItem < m_Places.size(); ++nItem) {
        if (!Moves(nItem)) {
            m_FixedTop = std::max(m_FixedTop, BoxOf(nItem).m_High.m_Y);
        }
    }
}

/// The items that move, and all that they can reach; the one with the lowest bottom first.
std::vector<CBlockProgram::SNeighbour> CBlockProgram::FindNeighbourhood() const {
    std::vector<SNeighbour> near;
    for (size_t nItem = 0; nItem < m_Places.size(); ++nItem) {
        const SPlaneBox box = BoxOf(nItem);
        if (GapOf(box, m_Around) < m_Farthest) {
            near.push_back({box, nItem});
        }
    }
    std::stable_sort(near.begin(), near.end(), [](const SNeighbour& a, const SNeighbour& b) {
        return a.m_Box.m_Low.m_Y < b.m_Box.m_Low.m_Y;
    });
    return near;
}

void CBlockProgram::AddPairs() {
    const std::vector<SNeighbour> near = FindNeighbourhood();
    for (size_t i = 0; i < near.size(); ++i) {
        const double top = near[i].m_Box.m_High.m_Y + m_Farthest;
        for (size_t k = i + 1; k < near.size() && near[k].m_Box.m_Low.m_Y < top; ++k) {
            const bool bMove = Moves(near[i].m_nItem) || Moves(near[k].m_nItem);
            if (bMove && GapOf(near[i].m_Box, near[k].m_Box) < m_Farthest) {
                AddPair(near[i].m_nItem, near[k].m_nItem);
            }
        }
    }
}

/// A row for each two of their parts that can reach each other.
void CBlockProgram::AddPair(size_t nFirst, size_t nSecond) {
    const double spacing = static_cast<double>(m_Problem.Strip().m_nSpacing);
    const double farthest = spacing + 2.0 * std::sqrt(2.0) * m_Reach;
    const SPlace& first = m_Places[nFirst];
    const SPlace& second = m_Places[nSecond];
    const size_t nPair = m_nPairs++;
    for (const CExactParts::SPart& own : m_Parts.Of(first.m_nVersion)) {
        for (const CExactParts::SPart& its : m_Parts.Of(second.m_nVersion)) {
            if (GapOf(BoxAt(own.m_Box, first.m_At), BoxAt(its.m_Box, second.m_At)) >= farthest) {
                continue;
            }
            const SForbiddenRegion region = FindForbiddenRegion(its.m_Part, own.m_Part, spacing);
            const SHalfPlane& side = BestSide(region, first.m_At - second.m_At);
            const double outside = side.Outside(first.m_At - second.m_At);
            if (outside < farthest) {
                const double lost = LostByRounding(side.m_Normal);
                m_Rows.push_back(
                    {nPair, m_Numbers[nFirst], m_Numbers[nSecond], side.m_Normal, lost - outside, lost});
            }
        }
    }
}

std::optional<SCompaction> CBlockProgram::Solve() const {
    std::optional<SCompaction> compaction = SolveCompaction(m_Movable, m_Rows, m_FixedTop, m_Reach);
    if (!compaction) {
        return std::nullopt;
    }
    if (!HasNoOverlap(*compaction) && compaction->m_Overlap < TIGHT) {
        std::optional<SCompaction> tight = SolveTightly();
        if (tight && HasNoOverlap(*tight)) {
            compaction = std::move(tight);
        }
    }
    if (HasNoOverlap(*compaction)) {
        compaction->m_Overlap = 0.0;
    }
    return compaction;
}

/// With nothing left for rounding.
std::optional<SCompaction> CBlockProgram::SolveTightly() const {
    std::vector<SKeepApart> rows = m_Rows;
    for (SKeepApart& row : rows) {
        row.m_Least -= row.m_Lost;
    }
    return SolveCompaction(m_Movable, rows, m_FixedTop, m_Reach);
}

}  // namespace nestrix
