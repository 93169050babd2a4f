#pragma once

#include <string>
#include <vector>

#include "ga/CChromosome.h"

namespace nestrix::reference {

/// A chromosome without the engine's operations.
struct SIndividual {
    std::vector<SGene> m_Genes;
    float m_fFitness = 0.0F;
};

/// Changes at most one gene; returns whether it did.
bool Mutate(SIndividual& individual, float fProbability, int nOrderLow, int nOrderHigh, float fXLow,
            float fXHigh);

/// One or two children of two parents with equally many genes.
void CrossOver(const SIndividual& first, const SIndividual& second, SIndividual* pChildren, int nChildren);

/// Draws an entry; −1, and a line in `console`, when the wheel falls short of the draw.
int RandomEventCore(const std::vector<float>& shares, std::string& console);

/// The same with one entry left out, unless nExclude is negative. The result indexes the shortened list.
int RandomEvent(const std::vector<float>& shares, int nExclude, std::string& console);

/// Formats and appends one of the search's lines.
[[gnu::format(printf, 2, 3)]] void Print(std::string& console, const char* pFormat, ...);

}  // namespace nestrix::reference
