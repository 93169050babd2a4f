#include "nest/CBreeder.h"

#include <algorithm>

namespace nestrix {

namespace {

/// How much higher than both packings, as a share, the strips are that are tried one after the other.
constexpr double RISES[] = {0.02, 0.04, 0.08, 0.16};

}  // namespace

CBreeder::CBreeder(const CPackProblem& problem, CPackingFinder& finder, CRandom& random)
    : m_Finder(finder), m_Random(random), m_Crossover(problem, random) {}

std::optional<SSolution> CBreeder::Breed() {
    if (m_Population.Count() < 2) {
        return std::nullopt;
    }
    const auto [first, second] = m_Population.DrawTwo(m_Random);
    const std::vector<SPlace> places = m_Crossover.Cross(first, second);
    for (const double rise : RISES) {
        const double height = std::max(first.m_Height, second.m_Height) * (1.0 + rise);
        std::optional<SSolution> found = m_Finder.Find(places, height, BEGINNING, height);
        if (found) {
            return found;
        }
    }
    return std::nullopt;
}

}  // namespace nestrix
