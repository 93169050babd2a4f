#include "ga/CGeneticSearch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>

#include "base/CNumericLocale.h"
#include "ga/Genes.h"
#include "ga/Roulette.h"

namespace nestrix {

namespace {

/// Not a number for an empty population.
float AverageOf(float fTotal, size_t nCount) {
    return fTotal / static_cast<float>(nCount);
}

}  // namespace

void RunGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip, const SSearchSize& size,
                      unsigned int nSeed, CSearchState& state, CSearchSink& sink) {
    const CNumericLocale numericLocale;
    const CRelaxed<bool>* const pAbandoned = sink.AbandonRequest();
    std::srand(nSeed);
    state.AppendFresh(static_cast<unsigned int>(size.m_nPopulation), static_cast<int>(polygons.size()),
                      pAbandoned);
    RandomiseGenes(state.m_Population, polygons.size(), strip.m_fWidth, pAbandoned);
    CGeneticSearch(polygons, strip, state, sink).Run(size.m_nGenerations);
}

CGeneticSearch::CGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip, CSearchState& state,
                               CSearchSink& sink)
    : m_Polygons(polygons),
      m_fStripWidth(strip.m_fWidth),
      m_State(state),
      m_Sink(sink),
      m_pAbandoned(sink.AbandonRequest()),
      m_Decoder(polygons, strip, ColumnHeight(polygons), m_pAbandoned),
      m_Shares(state.m_Population.size()) {
    m_Next.reserve(state.m_Population.size());
    for (size_t i = 0; i < state.m_Population.size() && !IsAbandoned(); ++i) {
        m_Next.push_back(state.m_Population[i]);
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
    for (size_t i = 0; i < m_State.m_Population.size(); ++i) {
        CChromosome& chromosome = m_State.m_Population[i];
        ClampIntoStrip(chromosome, m_Polygons, m_fStripWidth);
        const float fFitness = m_Decoder.Evaluate(chromosome.Genes());
        if (IsAbandoned()) {
            return false;
        }
        chromosome.m_fFitness = fFitness;
        m_Shares[i] = fFitness;
        m_State.RecordFounder(chromosome, i == 0);
        fTotalFitness += fFitness;
    }
    NormaliseShares(fTotalFitness);
    m_State.m_fAverageFitness = AverageOf(fTotalFitness, m_Shares.size());
    return !IsAbandoned();
}

bool CGeneticSearch::BreedGeneration() {
    if (!BreedChildren()) {
        return false;
    }
    m_State.ExchangePopulation(m_Next);
    std::printf("Newly Created %d\n", static_cast<int>(m_State.m_Population.size()));
    if (IsToLeave()) {
        return false;
    }
    float fTotalFitness = 0.0F;
    for (size_t i = 0; i < m_Shares.size(); ++i) {
        m_Shares[i] = m_State.m_Population[i].m_fFitness;
        fTotalFitness += m_Shares[i];
    }
    if (IsToLeave()) {
        return false;
    }
    NormaliseShares(fTotalFitness);
    if (IsToLeave()) {
        return false;
    }
    m_State.m_fAverageFitness = AverageOf(fTotalFitness, m_Shares.size());
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
        m_State.RecordChild(child);
    }
    return !IsToLeave();
}

void CGeneticSearch::BreedChild(CChromosome& child) {
    const int nShares = static_cast<int>(m_Shares.size());
    const int nFirst = DrawEntry(m_Shares);
    const int nSecond = nFirst < 0 ? DrawEntry(m_Shares) : DrawEntryExcept(m_Shares, nFirst);
    if (nFirst < 0 || nSecond < 0) {
        std::printf("WRONG (LESSER) idx\n %d , %d\n", nFirst, nSecond);
    }
    if (nFirst >= nShares || nSecond >= nShares) {
        std::printf("WRONG (GREATER) idx %d , %d\n", nFirst, nSecond);
    }
    CChromosome& first = SelectParent(nFirst);
    CChromosome& second = SelectParent(nSecond);
    first.CrossOver(second, &child, 1);
    const int nPolygons = static_cast<int>(m_Polygons.size());
    child.Mutate(0, nPolygons - 1, 0.0F, m_fStripWidth);
    ClampIntoStrip(child, m_Polygons, m_fStripWidth);
    child.m_fFitness = Evaluate(child, first, second);
}

float CGeneticSearch::Evaluate(const CChromosome& child, const CChromosome& first,
                               const CChromosome& second) {
    for (const CChromosome* pParent : {&first, &second}) {
        if (std::ranges::equal(child.Genes(), pParent->Genes())) {
            return pParent->m_fFitness;
        }
    }
    return m_Decoder.Evaluate(child.Genes());
}

CChromosome& CGeneticSearch::SelectParent(int nIndex) {
    const bool bValid = nIndex >= 0 && nIndex < static_cast<int>(m_State.m_Population.size());
    return m_State.m_Population[bValid ? static_cast<size_t>(nIndex) : 0];
}

void CGeneticSearch::NormaliseShares(float fTotalFitness) {
    const float fScale = 1.0F / fTotalFitness;
    for (float& fShare : m_Shares) {
        fShare *= fScale;
    }
}

void CGeneticSearch::PrintGeneration() const {
    std::printf("Generation %d has been created with %d many individuals\n", m_nGeneration,
                static_cast<int>(m_State.m_Population.size()));
    std::printf("Average fitness= %f\n", static_cast<double>(m_State.m_fAverageFitness));
    std::printf("Best Chromosome so far is %f\n", static_cast<double>(m_State.m_fBestFitness));
}

}  // namespace nestrix
