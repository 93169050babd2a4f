#pragma once

#include <string>
#include <vector>

#include "geom/CPolygon.h"

namespace nestrix::reference {

/// A whole search.
struct SSearchCase {
    std::vector<CPolygon> m_Polygons;
    float m_fContainerWidth = 400.0F;
    float m_fMutationProbability = 0.01F;
    int m_nPopulation = 10;
    int m_nGenerations = 10;
    unsigned int m_nSeed = 1;
    int m_nStopAt = -1;  ///< the generation whose report answers with a request to stop; −1: none
};

/// Searches with the engine and with the plain reference, and returns the first difference in words, or
/// nothing when they agree bit for bit: console lines, progress reports with the statistics that they find,
/// the last population, the best chromosome, and the number of draws.
[[nodiscard]] std::string FindSearchDifference(const SSearchCase& searchCase);

}  // namespace nestrix::reference
