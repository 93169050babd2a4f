#include "ga/GeneticSearch.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "base/CNumericLocale.h"
#include "ga/CDecoder.h"
#include "ga/Genes.h"
#include "ga/Roulette.h"

namespace nestrix {

namespace {

/// Not a number for an empty population.
float AverageOf(float fTotal, size_t nCount) {
    return fTotal / static_cast<float>(nCount);
}

/// One run of the search: breeds generation after generation in a state that its caller owns, and keeps the
/// run's working storage, so that a generation allocates nothing.
class CGeneticSearch {
public:
    /// Prepares what a run needs, and evaluates nothing yet.
    /// @param state holds the first generation, not yet evaluated.
    CGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip, CSearchState& state,
                   CSearchSink& sink);

    /// Evaluates the first generation and breeds nGenerations more, until the sink asks for the end.
    void Run(int nGenerations);

    /// The best packing so far, if there is one.
    [[nodiscard]] const std::optional<SPacking>& BestPacking() const { return m_BestPacking; }

private:
    /// @return false when it was abandoned meanwhile.
    [[nodiscard]] bool EvaluateFirstGeneration();

    /// Breeds, evaluates and reports one generation.
    /// @return false when it noticed a request to stop; the population is then the last complete one, and
    ///         the generation has not been reported.
    [[nodiscard]] bool BreedGeneration();
    [[nodiscard]] bool BreedChildren();
    void BreedChild(CChromosome& child);
    [[nodiscard]] CChromosome& SelectParent(int nIndex);

    /// The child's fitness, which is that of a parent if their genes are the same.
    [[nodiscard]] float Evaluate(const CChromosome& child, const CChromosome& first,
                                 const CChromosome& second);

    /// Keeps the packing of the chromosome that was evaluated last, which is the best so far.
    void KeepPacking(const CChromosome& best);

    /// Divides the population's fitness values, in m_Shares, by their sum.
    void NormaliseShares(float fTotalFitness);
    void PrintGeneration() const;
    [[nodiscard]] bool IsAbandoned() const { return IsMade(m_pAbandoned); }
    [[nodiscard]] bool IsToLeave() const { return m_Sink.IsToStop() || IsAbandoned(); }

    std::span<const CPolygon> m_Polygons;
    float m_fStripWidth;
    CSearchState& m_State;
    CSearchSink& m_Sink;
    const CRelaxed<bool>* m_pAbandoned;
    CDecoder m_Decoder;
    bool m_bPlaced = true;  ///< the decoder's last packing is that of the last chromosome evaluated
    std::optional<SPacking> m_BestPacking;
    std::vector<float> m_Shares;      ///< one per chromosome: fitness, then fitness / total fitness
    std::vector<CChromosome> m_Next;  ///< the generation being bred
    int m_nGeneration = 0;
};

CGeneticSearch::CGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip, CSearchState& state,
                               CSearchSink& sink)
    : m_Polygons(polygons),
      m_fStripWidth(strip.m_fWidth),
      m_State(state),
      m_Sink(sink),
      m_pAbandoned(sink.AbandonRequest()),
      m_Decoder(polygons, strip, StackedHeight(polygons), m_pAbandoned),
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
        if (m_State.RecordFounder(chromosome, i == 0)) {
            KeepPacking(chromosome);
        }
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
    std::swap(m_State.m_Population, m_Next);
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
        if (m_State.RecordChild(child)) {
            KeepPacking(child);
        }
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
            m_bPlaced = false;
            return pParent->m_fFitness;
        }
    }
    m_bPlaced = true;
    return m_Decoder.Evaluate(child.Genes());
}

void CGeneticSearch::KeepPacking(const CChromosome& best) {
    if (!m_bPlaced) {  // only where fitness is not a number can the copy of a parent be the best
        (void)m_Decoder.Evaluate(best.Genes());
        if (IsAbandoned()) {
            return;
        }
    }
    m_Decoder.CopyPacking(m_BestPacking ? *m_BestPacking : m_BestPacking.emplace());
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

}  // namespace

std::optional<SPacking> RunGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip,
                                         const SSearchSize& size, unsigned int nSeed, CSearchState& state,
                                         CSearchSink& sink) {
    const CNumericLocale numericLocale;
    const CRelaxed<bool>* const pAbandoned = sink.AbandonRequest();
    std::srand(nSeed);
    state.AppendFresh(static_cast<unsigned int>(size.m_nPopulation), static_cast<int>(polygons.size()),
                      pAbandoned);
    RandomiseGenes(state.m_Population, polygons.size(), strip.m_fWidth, pAbandoned);
    CGeneticSearch search(polygons, strip, state, sink);
    search.Run(size.m_nGenerations);
    return search.BestPacking();
}

}  // namespace nestrix
