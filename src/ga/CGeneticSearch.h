#pragma once

#include <span>
#include <vector>

#include "ga/CDecoder.h"
#include "ga/CSearchSink.h"
#include "ga/CSearchState.h"

namespace nestrix {

/// How much a genetic search does.
struct SSearchSize {
    int m_nPopulation = 0;
    int m_nGenerations = 0;  ///< after the first
};

/// The whole search: a first generation and more, appended to the population that the state holds. The same
/// seed gives the same history. Prints its progress, and draws from the C library's rand().
/// @param polygons the set; it must stay as it is meanwhile.
void RunGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip, const SSearchSize& size,
                      unsigned int nSeed, CSearchState& state, CSearchSink& sink);

/// One run of the search: breeds generation after generation in a state that its caller owns, and keeps the
/// run's working storage, so that a generation allocates nothing.
///
/// Every child enters the next generation, so the population keeps its size; nothing is culled, and the best
/// chromosome is kept aside, not in the population.
class CGeneticSearch {
public:
    /// Makes and evaluates nothing yet.
    /// @param state holds the first generation, not yet evaluated.
    CGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip, CSearchState& state,
                   CSearchSink& sink);

    /// Evaluates the first generation and breeds nGenerations more, until the sink asks for the end.
    void Run(int nGenerations);

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
    std::vector<float> m_Shares;      ///< one per chromosome: fitness, then fitness / total fitness
    std::vector<CChromosome> m_Next;  ///< the generation being bred
    int m_nGeneration = 0;
};

}  // namespace nestrix
