#include "nest/SinglePacking.h"

#include <optional>
#include <utility>

#include "nest/CTurner.h"

namespace nestrix {

SFreePacking PackSingle(const CPackProblem& problem) {
    CStepLimit never(1, CStepLimit::NEVER, [] { return false; });
    CStepCounter steps(never, 0, CStepLimit::NEVER, [] {});
    CTurner turner(problem, steps);
    const int64_t nMargin = problem.Strip().m_nMargin;
    std::optional<SFreePacking> lowest;
    for (const size_t nVersion : problem.VersionsOf(problem.Items().front())) {
        const SGridPoint corner = problem.Versions()[nVersion].m_Box.m_Low;
        SFreePacking packing = problem.PackingOf(
            std::vector{problem.PlacementOf(0, nVersion, SGridPoint{nMargin, nMargin} - corner)});
        if (problem.HasAnyTurn()) {
            const int64_t nKnown = lowest ? lowest->m_nHeight : packing.m_nHeight;
            packing = turner.Lower(packing, nKnown).value_or(packing);
        }
        if (!lowest || packing.m_nHeight < lowest->m_nHeight) {
            lowest = std::move(packing);
        }
    }
    return *lowest;
}

}  // namespace nestrix
