#include "ga/Genes.h"

#include <cstdlib>

#include "ga/RandomScale.h"

namespace nestrix {

void RandomiseGenes(std::span<CChromosome> population, size_t nPolygons, float fStripWidth,
                    const CRelaxed<bool>* pAbandoned) {
    const float fScale = fStripWidth * GA_RANDOM_SCALE;
    std::vector<int> pool;
    for (CChromosome& chromosome : population) {
        pool.resize(nPolygons);
        for (size_t i = 0; i < pool.size(); ++i) {
            pool[i] = static_cast<int>(i);
        }
        int nPolygon = 0;
        for (SGene& gene : chromosome.Genes()) {
            if (pool.empty()) {
                break;  // a chromosome left over from a larger polygon set
            }
            if (IsMade(pAbandoned)) {
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

void ClampIntoStrip(CChromosome& chromosome, std::span<const CPolygon> polygons, float fStripWidth) {
    for (SGene& gene : chromosome.Genes()) {
        if (gene.m_nPolygon < 0 || gene.m_nPolygon >= static_cast<int>(polygons.size())) {
            continue;
        }
        const CPolygon& polygon = polygons[static_cast<size_t>(gene.m_nPolygon)];
        // "not at or beyond the edge" rather than "before it": an offset that is not a number is reset too.
        if (!(polygon.m_BoundingBoxMin.x + gene.m_fX >= 0.0F)) {
            gene.m_fX = -polygon.m_BoundingBoxMin.x;
        }
        if (polygon.m_BoundingBoxMax.x + gene.m_fX > fStripWidth) {
            gene.m_fX = fStripWidth - polygon.m_BoundingBoxMax.x;
        }
    }
}

}  // namespace nestrix
