#include "ga/CSearchState.h"

#include <utility>

namespace nestrix {

void CSearchState::AppendFresh(unsigned int nChromosomes, int nGenes, const CRelaxed<bool>* pAbandoned) {
    CChromosome fresh;
    fresh.SetGeneCount(nGenes);
    m_Population.reserve(m_Population.size() + nChromosomes);
    for (unsigned int i = 0; i < nChromosomes && !IsMade(pAbandoned); ++i) {
        m_Population.push_back(fresh);
    }
    m_nPopulationSize = static_cast<int>(m_Population.size());
}

void CSearchState::ClearPopulation() {
    m_Population.clear();
    m_nPopulationSize = 0;
}

void CSearchState::ExchangePopulation(std::vector<CChromosome>& next) {
    std::swap(m_Population, next);
}

void CSearchState::RecordFounder(const CChromosome& chromosome, bool bVeryFirst) {
    const float fFitness = chromosome.m_fFitness;
    if (bVeryFirst) {
        m_fWorstFitness = fFitness;
        m_fBestFitness = fFitness;
        ReplaceBest(chromosome);
        return;
    }
    if (m_fWorstFitness > fFitness) {
        m_fWorstFitness = fFitness;
    }
    RecordBest(chromosome);
}

void CSearchState::RecordChild(const CChromosome& chromosome) {
    if (!(chromosome.m_fFitness >= m_fWorstFitness)) {
        m_fWorstFitness = chromosome.m_fFitness;
    }
    RecordBest(chromosome);
}

CChromosome CSearchState::CopyBestChromosome() const {
    const std::lock_guard guard(m_BestGuard);
    return m_BestChromosome;
}

/// A tie keeps the earlier one.
void CSearchState::RecordBest(const CChromosome& chromosome) {
    if (!(m_fBestFitness >= chromosome.m_fFitness)) {
        m_fBestFitness = chromosome.m_fFitness;
        ReplaceBest(chromosome);
    }
}

void CSearchState::ReplaceBest(const CChromosome& chromosome) {
    const std::lock_guard guard(m_BestGuard);
    m_BestChromosome = chromosome;
}

}  // namespace nestrix
