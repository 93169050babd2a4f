#pragma once

#include <mutex>
#include <vector>

#include "base/CRelaxed.h"
#include "ga/CChromosome.h"

namespace nestrix {

/// What a genetic search has got so far: the current generation, the best chromosome, which is kept aside,
/// and the statistics.
///
/// Threads: one thread searches. Meanwhile any other may read the relaxed scalars and call PopulationSize and
/// CopyBestChromosome. Nothing else may be touched until the search has returned.
class CSearchState {
public:
    /// Appends chromosomes with nGenes indexed genes each, zero otherwise.
    /// @param pAbandoned once this is true, no more are appended. May be null.
    void AppendFresh(unsigned int nChromosomes, int nGenes, const CRelaxed<bool>* pAbandoned);

    /// Empties the population. The best chromosome and the statistics stay until the next run resets them.
    void ClearPopulation();

    /// Enters an evaluated chromosome of the first generation in the best and the worst, the very first one
    /// as both.
    /// @return whether it is the best so far.
    bool RecordFounder(const CChromosome& chromosome, bool bVeryFirst);

    /// Enters an evaluated child. Unlike a founder, it also becomes the worst when it, or the worst so far,
    /// is not a number.
    /// @return whether it is the best so far.
    bool RecordChild(const CChromosome& chromosome);

    /// The size of the population. Any thread, at any time.
    [[nodiscard]] int PopulationSize() const { return m_nPopulationSize; }

    /// A whole copy of the best chromosome. Any thread, at any time; waits at most for another copy.
    [[nodiscard]] CChromosome CopyBestChromosome() const;

    CRelaxed<float> m_fAverageFitness = 0.0F;  ///< of the current population
    CRelaxed<float> m_fBestFitness = 0.0F;     ///< highest of this run
    CRelaxed<float> m_fWorstFitness = 0.0F;    ///< lowest of this run
    std::vector<CChromosome> m_Population;     ///< the current generation
    CChromosome m_BestChromosome;  ///< the fittest of this run; while it runs, read a CopyBestChromosome

private:
    bool RecordBest(const CChromosome& chromosome);
    void ReplaceBest(const CChromosome& chromosome);

    CRelaxed<int> m_nPopulationSize = 0;
    mutable std::mutex m_BestGuard;  ///< held while m_BestChromosome is replaced or copied, never longer
};

}  // namespace nestrix
