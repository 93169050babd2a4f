#pragma once

#include <optional>
#include <span>

#include "ga/CSearchSink.h"
#include "ga/CSearchState.h"
#include "geom/CPolygon.h"
#include "packing/SPacking.h"

namespace nestrix {

/// How much a genetic search does.
struct SSearchSize {
    int m_nPopulation = 0;
    int m_nGenerations = 0;  ///< after the first
};

/// The whole search: a first generation, appended to the population that the state holds, and more. Every
/// child enters the next generation, so the population keeps its size; nothing is culled, and the best
/// chromosome is kept aside, not in the population. The same seed gives the same history. Prints its
/// progress, and draws from the C library's rand().
/// @param polygons the set; it must stay as it is meanwhile.
/// @return the best packing of the run, that of the state's best chromosome; nothing if none was completed.
std::optional<SPacking> RunGeneticSearch(std::span<const CPolygon> polygons, const SStrip& strip,
                                         const SSearchSize& size, unsigned int nSeed, CSearchState& state,
                                         CSearchSink& sink);

}  // namespace nestrix
