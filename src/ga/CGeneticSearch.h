#pragma once

#include <vector>

#include "CContainer.h"
#include "CPlacement.h"

/// One run of the search: breeds generation after generation in a container and keeps the run's working
/// storage, so that a generation allocates nothing.
///
/// Every child enters the next generation, so the population keeps its size; nothing is culled, and the best
/// chromosome is kept aside, not in the population.
class CGeneticSearch {
public:
    /// Makes and evaluates nothing yet. The container's total height and population must be prepared.
    CGeneticSearch(CContainer& container, CGenerationSink& sink);

    /// Evaluates the first generation and breeds nGenerations more, until m_bStop or m_bAbandoned is set.
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
    [[nodiscard]] bool IsAbandoned() const { return m_Container.m_bAbandoned; }
    [[nodiscard]] bool IsToLeave() const { return m_Container.m_bStop || IsAbandoned(); }

    CContainer& m_Container;
    CGenerationSink& m_Sink;
    CPlacement m_Placement;
    std::vector<float> m_Shares;      ///< one per chromosome: fitness, then fitness / total fitness
    std::vector<CChromosome> m_Next;  ///< the generation being bred
    int m_nGeneration = 0;
};
