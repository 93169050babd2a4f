#include "ga/CSearchState.h"

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

bool CSearchState::RecordFounder(const CChromosome& chromosome, bool bVeryFirst) {
    const float fFitness = chromosome.m_fFitness;
    if (bVeryFirst) {
        m_fWorstFitness = fFitness;
        m_fBestFitness = fFitness;
        ReplaceBest(chromosome);
        return true;
    }
    if (m_fWorstFitness > fFitness) {
        m_fWorstFitness = fFitness;
    }
    return RecordBest(chromosome);
}

bool CSearchState::RecordChild(const CChromosome& chromosome) {
    if (!(chromosome.m_fFitness >= m_fWorstFitness)) {
        m_fWorstFitness = chromosome.m_fFitness;
    }
    return RecordBest(chromosome);
}

CChromosome CSearchState::CopyBestChromosome() const {
    const std::lock_guard guard(m_BestGuard);
    return m_BestChromosome;
}

/// A tie keeps the earlier one.
bool CSearchState::RecordBest(const CChromosome& chromosome) {
    if (m_fBestFitness >= chromosome.m_fFitness) {
        return false;
    }
    m_fBestFitness = chromosome.m_fFitness;
    ReplaceBest(chromosome);
    return true;
}

void CSearchState::ReplaceBest(const CChromosome& chromosome) {
    const std::lock_guard guard(m_BestGuard);
    m_BestChromosome = chromosome;
}

}  // namespace nestrix
