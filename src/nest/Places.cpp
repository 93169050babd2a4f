#include "nest/Places.h"

#include <algorithm>

namespace nestrix {

double HeightOf(const CPackProblem& problem, std::span<const SPlace> places) {
    double height = 0.0;
    for (const SPlace& place : places) {
        height =
            std::max(height, place.m_At.m_Y + AsPoint(problem.Versions()[place.m_nVersion].m_Box.m_High).m_Y);
    }
    return height;
}

SSolution SolutionOf(const CPackProblem& problem, std::span<const SFreePlacement> placed) {
    SSolution solution;
    for (const SFreePlacement& placement : placed) {
        const size_t nVersion = *problem.FindVersion(static_cast<size_t>(placement.m_nPiece),
                                                     placement.m_Degrees, placement.m_bMirrored);
        const SGridPoint at = placement.m_At + problem.Versions()[nVersion].m_Reference;
        solution.m_Places.push_back({AsPoint(at), nVersion});
    }
    solution.m_Height = HeightOf(problem, solution.m_Places);
    return solution;
}

std::vector<SFreePlacement> PlacementsOf(const CPackProblem& problem, const SSolution& solution) {
    std::vector<SFreePlacement> placed;
    placed.reserve(solution.m_Places.size());
    for (size_t i = 0; i < solution.m_Places.size(); ++i) {
        const SPlace& place = solution.m_Places[i];
        const SGridPoint at{static_cast<int64_t>(place.m_At.m_X), static_cast<int64_t>(place.m_At.m_Y)};
        placed.push_back(problem.PlacementOf(i, place.m_nVersion, at));
    }
    return placed;
}

SFreePacking PackingOf(const CPackProblem& problem, const SSolution& solution) {
    return problem.PackingOf(PlacementsOf(problem, solution));
}

}  // namespace nestrix
