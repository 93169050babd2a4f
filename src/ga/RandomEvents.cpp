#include <cstdlib>

#include "CContainer.h"
#include "RandomScale.h"
#include "Roulette.h"

int CContainer::RandomEventCore(float* pShares, int nShares) {
    return SpinRoulette(nShares, [pShares](int i) { return pShares[i]; });
}

int CContainer::RandomEvent(float* pShares, int nShares, int nExclude) {
    if (nExclude < 0) {
        return RandomEventCore(pShares, nShares);
    }
    float fSum = 0.0F;
    for (int i = 0; i < nShares; ++i) {
        if (i != nExclude) {
            fSum += pShares[i];
        }
    }
    const float fScale = 1.0F / fSum;
    // The result indexes the list without the excluded entry and is returned as it is, deliberately.
    return SpinRoulette(nShares - 1, [pShares, nExclude, fScale](int i) {
        return pShares[i < nExclude ? i : i + 1] * fScale;
    });
}

void CContainer::RandomlyGenerateFirstGeneration() {
    const float fScale = m_fContainerWidth * GA_RANDOM_SCALE;
    std::vector<int> pool;
    for (CChromosome& chromosome : m_Population) {
        pool.resize(m_Polygons.size());
        for (size_t i = 0; i < pool.size(); ++i) {
            pool[i] = static_cast<int>(i);
        }
        int nPolygon = 0;
        for (SGene& gene : chromosome.Genes()) {
            if (pool.empty()) {
                break;  // a chromosome left over from a larger polygon set
            }
            if (m_bAbandoned) {
                return;
            }
            gene.m_nPolygon = nPolygon++;
            const auto chosen =
                pool.begin() + static_cast<ptrdiff_t>(static_cast<unsigned>(std::rand()) % pool.size());
            gene.m_nOrder = *chosen;
            pool.erase(chosen);
            gene.m_fX = static_cast<float>(static_cast<double>(fScale) * std::rand());
        }
    }
}

int GeneSortCallBack(void const* a, void const* b) {
    return static_cast<SGene const*>(a)->m_nOrder - static_cast<SGene const*>(b)->m_nOrder;
}
