#include "ga/CContainer.h"

#include <cstdio>
#include <span>

#include "ga/Genes.h"
#include "ga/GeneticSearch.h"
#include "ga/Roulette.h"
#include "geom/SBox.h"
#include "packing/SPacking.h"

using namespace nestrix;

namespace {

std::span<const float> SharesOf(const float* pShares, int nShares) {
    return {pShares, nShares > 0 ? static_cast<size_t>(nShares) : 0};
}

}  // namespace

bool CContainer::AddPolygon(char const* path) {
    CPolygon polygon;
    if (!polygon.ReadPolygon(path)) {
        std::printf("Couldn't Load Polygon %s\n", path);
        return false;
    }
    m_Polygons.push_back(std::move(polygon));
    return true;
}

void CContainer::Clear() {
    m_Polygons.clear();
    ClearPopulation();
    m_Reported.Clear();
}

void CContainer::PrepareEverything(unsigned int nPopulation) {
    m_fTotalHeight = StackedHeight(m_Polygons);
    AppendFresh(nPopulation, static_cast<int>(m_Polygons.size()), nullptr);
}

void CContainer::ValidateChromosome(CChromosome& chromosome) const {
    ClampIntoStrip(chromosome, m_Polygons, m_fContainerWidth);
}

void CContainer::GetCollidablePolygonList(CPolygon const& polygon, std::vector<CPolygon> const& placed,
                                          std::vector<CPolygon>& collidable) const {
    const SBox falling = WorldBox(polygon, polygon.m_ReferencePoint);
    for (CPolygon const& obstacle : placed) {
        if (CanTouch(falling, WorldBox(obstacle, obstacle.m_ReferencePoint))) {
            collidable.push_back(obstacle);
        }
    }
}

int CContainer::RandomEventCore(float* pShares, int nShares) {
    return DrawEntry(SharesOf(pShares, nShares));
}

int CContainer::RandomEvent(float* pShares, int nShares, int nExclude) {
    const std::span<const float> shares = SharesOf(pShares, nShares);
    return nExclude < 0 ? DrawEntry(shares) : DrawEntryExcept(shares, nExclude);
}

void CContainer::RandomlyGenerateFirstGeneration() {
    RandomiseGenes(m_Population, m_Polygons.size(), m_fContainerWidth, nullptr);
}

void CContainer::RunSearch(int nPopulation, int nGenerations, unsigned int nSeed, CSearchSink& sink) {
    m_fTotalHeight = StackedHeight(m_Polygons);
    (void)RunGeneticSearch(m_Polygons, Strip(), {nPopulation, nGenerations}, nSeed, *this, sink);
}

SGenerationStatistics CContainer::TakeStatistics(int nGeneration) {
    const SGenerationStatistics now{nGeneration, m_fAverageFitness, m_fBestFitness};
    return m_Reported.Take(nGeneration).value_or(now);
}
