#include "nest/CCompactor.h"

#include <algorithm>
#include <cmath>

#include "nest/CBlockProgram.h"

namespace nestrix {

namespace {

/// So many items move at a time if those are all of them, and so many if there are more.
constexpr size_t MOST_AT_ONCE = 400;
constexpr size_t ITEMS_IN_BLOCK = 200;

}  // namespace

CCompactor::CCompactor(const CPackProblem& problem) : m_Problem(problem), m_Parts(problem) {}

/// @return the overlap that is left among and around the block's items.
std::optional<double> CCompactor::CompactBlock(std::vector<SPlace>& places, std::span<const size_t> items,
                                               double reach) {
    const std::optional<SCompaction> compaction =
        CBlockProgram(m_Problem, m_Parts, places, items, reach).Solve();
    if (!compaction) {
        return std::nullopt;
    }
    for (size_t i = 0; i < items.size(); ++i) {
        const SPoint at = places[items[i]].m_At + compaction->m_Moves[i];
        places[items[i]].m_At = {std::round(at.m_X), std::round(at.m_Y)};
    }
    return compaction->m_Overlap;
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
    for (size_t nFirst = 0; nFirst < order.size(); nFirst += nBlock) {
        const size_t nCount = std::min(nBlock, order.size() - nFirst);
        const std::optional<double> overlap =
            CompactBlock(result.m_Places, std::span(order).subspan(nFirst, nCount), reach);
        if (!overlap) {
            return std::nullopt;
        }
        result.m_Overlap += *overlap;
    }
    return result;
}

}  // namespace nestrix
