#include "tests/reference/CReferenceSearch.h"

#include <cstdlib>

#include "tests/reference/ReferencePlacement.h"

namespace nestrix::reference {

void CReferenceSearch::Run(unsigned int nPopulation, int nGenerations, unsigned int nSeed) {
    m_bStop = false;
    std::srand(nSeed);
    PrepareEverything(nPopulation);
    RandomlyGenerateFirstGeneration();
    EvaluateFirstGeneration();
    m_OnGeneration(0);
    if (m_bStop || nGenerations < 1) {
        return;
    }
    while (m_nGeneration != nGenerations) {
        if (!BreedGeneration()) {
            return;
        }
    }
}

void CReferenceSearch::PrepareEverything(unsigned int nPopulation) {
    m_fTotalHeight = TotalHeight(m_Polygons);
    for (unsigned int i = 0; i < nPopulation; ++i) {
        SIndividual individual;
        for (int j = 0; j < static_cast<int>(m_Polygons.size()); ++j) {
            individual.m_Genes.push_back({j, 0, 0.0F});
        }
        m_Population.push_back(individual);
    }
}

void CReferenceSearch::RandomlyGenerateFirstGeneration() {
    for (SIndividual& individual : m_Population) {
        std::vector<int> pool;
        for (int i = 0; i < static_cast<int>(m_Polygons.size()); ++i) {
            pool.push_back(i);
        }
        for (SGene& gene : individual.m_Genes) {
            const size_t k = static_cast<unsigned int>(std::rand()) % pool.size();
            gene.m_nOrder = pool.at(k);
            pool.erase(pool.begin() + static_cast<std::ptrdiff_t>(k));
            const float fScale = m_fContainerWidth * 4.656613e-10F;
            gene.m_fX = static_cast<float>(static_cast<double>(fScale) * std::rand());
        }
    }
}

void CReferenceSearch::Evaluate(SIndividual& individual) const {
    individual.m_fFitness = Place(individual.m_Genes, m_Polygons, m_fTotalHeight).m_fFitness;
}

void CReferenceSearch::EvaluateFirstGeneration() {
    float fTotal = 0.0F;
    for (size_t i = 0; i < m_Population.size(); ++i) {
        SIndividual& individual = m_Population[i];
        Clamp(individual.m_Genes, m_Polygons, m_fContainerWidth);
        Evaluate(individual);
        const float f = individual.m_fFitness;
        m_Shares.push_back(f);
        if (i == 0) {
            m_fWorstFitness = f;
            m_fBestFitness = f;
            m_Best = individual;
        } else {
            if (m_fWorstFitness > f) {
                m_fWorstFitness = f;
            }
            if (!(m_fBestFitness >= f)) {
                m_fBestFitness = f;
                m_Best = individual;
            }
        }
        fTotal = fTotal + f;
    }
    NormaliseShares(fTotal);
    m_fAverageFitness = fTotal / static_cast<float>(m_Population.size());
}

void CReferenceSearch::NormaliseShares(float fTotal) {
    const float fScale = 1.0F / fTotal;
    for (float& fShare : m_Shares) {
        fShare = fShare * fScale;
    }
}

const SIndividual& CReferenceSearch::Parent(int nIndex) const {
    const bool bInside = nIndex >= 0 && nIndex < static_cast<int>(m_Population.size());
    return m_Population.at(bInside ? static_cast<size_t>(nIndex) : 0);
}

SIndividual CReferenceSearch::BreedChild() {
    const int a = RandomEvent(m_Shares, -1, m_Console);
    const int b = RandomEvent(m_Shares, a, m_Console);
    if (a < 0 || b < 0) {
        Print(m_Console, "WRONG (LESSER) idx\n %d , %d\n", a, b);
    }
    const int n = static_cast<int>(m_Population.size());
    if (a >= n || b >= n) {
        Print(m_Console, "WRONG (GREATER) idx %d , %d\n", a, b);
    }
    SIndividual child;
    CrossOver(Parent(a), Parent(b), &child, 1);
    Mutate(child, m_fMutationProbability, 0, static_cast<int>(m_Polygons.size()) - 1, 0.0F,
           m_fContainerWidth);
    Clamp(child.m_Genes, m_Polygons, m_fContainerWidth);
    Evaluate(child);
    return child;
}

bool CReferenceSearch::BreedGeneration() {
    if (m_bStop) {
        return false;
    }
    std::vector<SIndividual> next;
    const size_t n = m_Population.size();
    for (size_t i = 0; i < n; ++i) {
        const SIndividual child = BreedChild();
        if (!(child.m_fFitness >= m_fWorstFitness)) {
            m_fWorstFitness = child.m_fFitness;
        }
        if (!(m_fBestFitness >= child.m_fFitness)) {
            m_fBestFitness = child.m_fFitness;
            m_Best = child;
        }
        next.push_back(child);
    }
    m_Population = next;
    Print(m_Console, "Newly Created %d\n", static_cast<int>(next.size()));
    float fTotal = 0.0F;
    m_Shares.clear();
    for (const SIndividual& individual : m_Population) {
        m_Shares.push_back(individual.m_fFitness);
        fTotal = fTotal + individual.m_fFitness;
    }
    NormaliseShares(fTotal);
    m_fAverageFitness = fTotal / static_cast<float>(n);
    ++m_nGeneration;
    m_OnGeneration(m_nGeneration);
    Print(m_Console, "Generation %d has been created with %d many individuals\n", m_nGeneration,
          static_cast<int>(m_Population.size()));
    Print(m_Console, "Average fitness= %f\n", static_cast<double>(m_fAverageFitness));
    Print(m_Console, "Best Chromosome so far is %f\n", static_cast<double>(m_fBestFitness));
    return true;
}

}  // namespace nestrix::reference
