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

bool HasNoOverlap(const SCompaction& compaction) {
    return compaction.m_Overlap < NO_OVERLAP;
}

}  // namespace

CBlockProgram::CBlockProgram(const CPackProblem& problem, CExactParts& parts, std::span<const SPlace> places,
                             std::span<const size_t> items, double reach)
    : m_Problem(problem),
      m_Places(places),
      m_Reach(reach),
      m_Farthest(static_cast<double>(problem.Strip().m_nSpacing) + 2.0 * reach),
      m_Numbers(places.size(), NOT_MOVABLE),
      m_PartPairs(parts, static_cast<double>(problem.Strip().m_nSpacing), reach) {
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

CPartPairs::SItem CBlockProgram::ItemOf(size_t nItem) const {
    return {m_Numbers[nItem], m_Places[nItem].m_nVersion, m_Places[nItem].m_At};
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
                m_PartPairs.Add(ItemOf(near[i].m_nItem), ItemOf(near[k].m_nItem));
            }
        }
    }
}

std::optional<SCompaction> CBlockProgram::Solve() {
    CCompactionProgram program(m_Movable, m_FixedTop, m_Reach);
    program.Add(m_PartPairs.TakeNear());
    std::optional<SCompaction> compaction = SolveWithRows(program);
    if (!compaction) {
        return std::nullopt;
    }
    if (!HasNoOverlap(*compaction) && compaction->m_Overlap < TIGHT) {
        program.Tighten();
        m_PartPairs.Tighten();
        std::optional<SCompaction> tight = SolveWithRows(program);
        if (tight && HasNoOverlap(*tight)) {
            compaction = std::move(tight);
        }
    }
    if (HasNoOverlap(*compaction)) {
        compaction->m_Overlap = 0.0;
    }
    return compaction;
}

/// Solves the program, and adds the rows that its solution violates, until it violates none.
std::optional<SCompaction> CBlockProgram::SolveWithRows(CCompactionProgram& program) {
    while (true) {
        std::optional<SCompaction> compaction = program.Solve();
        if (!compaction) {
            return std::nullopt;
        }
        const std::vector<SKeepApart> violated = m_PartPairs.TakeOverlapping(compaction->m_Moves);
        if (violated.empty()) {
            return compaction;
        }
        program.Add(violated);
    }
}

}  // namespace nestrix
