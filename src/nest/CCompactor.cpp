#include "nest/CCompactor.h"

#include <cmath>

#include "nest/CBlockProgram.h"
#include "nest/ItemBlocks.h"

namespace nestrix {

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
