#include "CGeneticSearch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "NumericLocale.h"

namespace {

/// Not a number for an empty population.
float AverageOf(float fTotal, size_t nCount) {
    return fTotal / static_cast<float>(nCount);
}

}  // namespace

void CContainer::RunSearch(int nPopulation, int nGenerations, unsigned int nSeed, CGenerationSink& sink) {
    const CNumericLocale numericLocale;
    m_bStop = false;
    std::srand(nSeed);
    PrepareEverything(static_cast<unsigned int>(nPopulation));
    RandomlyGenerateFirstGeneration();
    CGeneticSearch(*this, sink).Run(nGenerations);
}

CGeneticSearch::CGeneticSearch(CContainer& container, CGenerationSink& sink)
    : m_Container(container),
      m_Sink(sink),
      m_Placement(container.m_Polygons, container.m_fTotalHeight, container.m_fContainerWidth,
                  &container.m_bAbandoned),
      m_Shares(container.m_Population.size()) {
    m_Next.reserve(container.m_Population.size());
    for (size_t i = 0; i < container.m_Population.size() && !IsAbandoned(); ++i) {
        m_Next.push_back(container.m_Population[i]);
    }
}

void CGeneticSearch::Run(int nGenerations) {
    if (!EvaluateFirstGeneration()) {
        return;
    }
    m_Sink.GenerationDone(m_nGeneration);
    while (!IsToLeave() && m_nGeneration < nGenerations) {
        if (!BreedGeneration()) {
            return;
        }
    }
}

bool CGeneticSearch::EvaluateFirstGeneration() {
    float fTotalFitness = 0.0F;
    for (size_t i = 0; i < m_Container.m_Population.size(); ++i) {
        CChromosome& chromosome = m_Container.m_Population[i];
        m_Container.ValidateChromosome(chromosome);
        const float fFitness = m_Placement.Place(chromosome.Genes());
        if (IsAbandoned()) {
            return false;
        }
        chromosome.m_fFitness = fFitness;
        m_Shares[i] = fFitness;
        if (i == 0 || m_Container.m_fWorstFitness > fFitness) {
            m_Container.m_fWorstFitness = fFitness;
        }
        if (i == 0 || !(m_Container.m_fBestFitness >= fFitness)) {
            m_Container.m_fBestFitness = fFitness;
            m_Container.ReplaceBestChromosome(chromosome);
        }
        fTotalFitness += fFitness;
    }
    NormaliseShares(fTotalFitness);
    m_Container.m_fAverageFitness = AverageOf(fTotalFitness, m_Shares.size());
    return !IsAbandoned();
}

bool CGeneticSearch::BreedGeneration() {
    if (!BreedChildren()) {
        return false;
    }
    std::swap(m_Container.m_Population, m_Next);
    std::printf("Newly Created %d\n", static_cast<int>(m_Container.m_Population.size()));
    if (IsToLeave()) {
        return false;
    }
    float fTotalFitness = 0.0F;
    for (size_t i = 0; i < m_Shares.size(); ++i) {
        m_Shares[i] = m_Container.m_Population[i].m_fFitness;
        fTotalFitness += m_Shares[i];
    }
    if (IsToLeave()) {
        return false;
    }
    NormaliseShares(fTotalFitness);
    if (IsToLeave()) {
        return false;
    }
    m_Container.m_fAverageFitness = AverageOf(fTotalFitness, m_Shares.size());
    ++m_nGeneration;
    m_Sink.GenerationDone(m_nGeneration);
    if (IsAbandoned()) {
        return false;
    }
    PrintGeneration();
    return true;
}

bool CGeneticSearch::BreedChildren() {
    for (CChromosome& child : m_Next) {
        if (IsToLeave()) {
            return false;
        }
        BreedChild(child);
        if (IsToLeave()) {
            return false;
        }
        const float fFitness = child.m_fFitness;
        if (!(fFitness >= m_Container.m_fWorstFitness)) {
            m_Container.m_fWorstFitness = fFitness;
        }
        if (!(m_Container.m_fBestFitness >= fFitness)) {
            m_Container.m_fBestFitness = fFitness;
            m_Container.ReplaceBestChromosome(child);
        }
    }
    return !IsToLeave();
}

void CGeneticSearch::BreedChild(CChromosome& child) {
    const int nShares = static_cast<int>(m_Shares.size());
    const int nFirst = m_Container.RandomEvent(m_Shares.data(), nShares, -1);
    const int nSecond = m_Container.RandomEvent(m_Shares.data(), nShares, nFirst);
    if (nFirst < 0 || nSecond < 0) {
        std::printf("WRONG (LESSER) idx\n %d , %d\n", nFirst, nSecond);
    }
    if (nFirst >= nShares || nSecond >= nShares) {
        std::printf("WRONG (GREATER) idx %d , %d\n", nFirst, nSecond);
    }
    CChromosome& first = SelectParent(nFirst);
    CChromosome& second = SelectParent(nSecond);
    first.CrossOver(second, &child, 1);
    const int nPolygons = static_cast<int>(m_Container.m_Polygons.size());
    child.Mutate(0, nPolygons - 1, 0.0F, m_Container.m_fContainerWidth);
    m_Container.ValidateChromosome(child);
    child.m_fFitness = Evaluate(child, first, second);
}

float CGeneticSearch::Evaluate(const CChromosome& child, const CChromosome& first,
                               const CChromosome& second) {
    for (const CChromosome* pParent : {&first, &second}) {
        if (std::ranges::equal(child.Genes(), pParent->Genes())) {
            return pParent->m_fFitness;
        }
    }
    return m_Placement.Place(child.Genes());
}

CChromosome& CGeneticSearch::SelectParent(int nIndex) {
    const bool bValid = nIndex >= 0 && nIndex < static_cast<int>(m_Container.m_Population.size());
    return m_Container.m_Population[bValid ? static_cast<size_t>(nIndex) : 0];
}

void CGeneticSearch::NormaliseShares(float fTotalFitness) {
    const float fScale = 1.0F / fTotalFitness;
    for (float& fShare : m_Shares) {
        fShare *= fScale;
    }
}

void CGeneticSearch::PrintGeneration() const {
    std::printf("Generation %d has been created with %d many individuals\n", m_nGeneration,
                static_cast<int>(m_Container.m_Population.size()));
    std::printf("Average fitness= %f\n", static_cast<double>(m_Container.m_fAverageFitness));
    std::printf("Best Chromosome so far is %f\n", static_cast<double>(m_Container.m_fBestFitness));
}
