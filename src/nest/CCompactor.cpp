#include "nest/CCompactor.h"

#include <algorithm>
#include <cmath>
#include <numeric>

#include "nest/CBlockProgram.h"

namespace nestrix {

namespace {

/// So many items move at a time if those are all of them, and so many if there are more.
constexpr size_t MOST_AT_ONCE = 400;
constexpr size_t ITEMS_IN_BLOCK = 200;

/// The items that move at a time, as indices: all of them, or those at one level.
std::vector<std::vector<size_t>> BlocksOf(std::span<const SPlace> places) {
    std::vector<size_t> items(places.size());
    std::iota(items.begin(), items.end(), size_t{0});
    if (items.size() <= MOST_AT_ONCE) {
        return {items};
    }
    std::stable_sort(items.begin(), items.end(),
                     [&](size_t a, size_t b) { return places[a].m_At.m_Y < places[b].m_At.m_Y; });
    std::vector<std::vector<size_t>> blocks;
    for (size_t i = 0; i < items.size(); ++i) {
        if (i % ITEMS_IN_BLOCK == 0) {
            blocks.emplace_back();
        }
        blocks.back().push_back(items[i]);
    }
    return blocks;
}

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
    for (const std::vector<size_t>& items : BlocksOf(places)) {
        const std::optional<double> overlap = CompactBlock(result.m_Places, items, reach);
        if (!overlap) {
            return std::nullopt;
        }
        result.m_Overlap += *overlap;
    }
    return result;
}

}  // namespace nestrix
