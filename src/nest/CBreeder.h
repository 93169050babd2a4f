#pragma once

#include <optional>

#include "nest/CCrossover.h"
#include "nest/CPackingFinder.h"
#include "nest/CPopulation.h"

namespace nestrix {

/// Keeps what runs have found, and makes packings to begin others with: two of those are crossed and what
/// comes of that is separated.
class CBreeder {
public:
    CBreeder(const CPackProblem& problem, CPackingFinder& finder, CRandom& random);

    /// Takes a packing into the population, if it is good enough.
    void Enter(const SSolution& packing) { m_Population.Enter(packing); }

    /// @return a packing, mostly some tenths higher than those of the population; nothing if none was found,
    /// or there are no two to be crossed.
    [[nodiscard]] std::optional<SSolution> Breed();

    /// So many packings are kept.
    static constexpr size_t POPULATION = 8;

private:
    CPackingFinder& m_Finder;
    CRandom& m_Random;
    CPopulation m_Population{POPULATION};
    CCrossover m_Crossover;
};

}  // namespace nestrix
