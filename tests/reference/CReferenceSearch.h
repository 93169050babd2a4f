#pragma once

#include <functional>
#include <string>
#include <vector>

#include "geom/CPolygon.h"
#include "tests/reference/ReferenceOperators.h"

namespace nestrix::reference {

/// The whole search, without a window, threads or speed. Fill m_Polygons, set what differs from the defaults,
/// run once and read the rest.
class CReferenceSearch {
public:
    /// A first generation and nGenerations more, from a given seed of rand().
    void Run(unsigned int nPopulation, int nGenerations, unsigned int nSeed);

    std::vector<CPolygon> m_Polygons;
    float m_fContainerWidth = 400.0F;
    float m_fMutationProbability = 0.01F;
    bool m_bStop = false;
    std::function<void(int)> m_OnGeneration = [](int) {};  ///< stands for the progress event

    float m_fTotalHeight = 0.0F;
    float m_fAverageFitness = 0.0F;
    float m_fBestFitness = 0.0F;
    float m_fWorstFitness = 0.0F;
    std::vector<SIndividual> m_Population;
    SIndividual m_Best;
    std::string m_Console;  ///< every line that the search prints

private:
    void PrepareEverything(unsigned int nPopulation);
    void RandomlyGenerateFirstGeneration();
    void EvaluateFirstGeneration();
    void Evaluate(SIndividual& individual) const;
    void NormaliseShares(float fTotal);
    [[nodiscard]] bool BreedGeneration();
    [[nodiscard]] SIndividual BreedChild();
    [[nodiscard]] const SIndividual& Parent(int nIndex) const;

    std::vector<float> m_Shares;
    int m_nGeneration = 0;
};

}  // namespace nestrix::reference
