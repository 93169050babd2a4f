#include "CContainer.h"

#include <cstdio>

#include "CPlacement.h"
#include "SBox.h"

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
    m_Population.clear();
    m_nPopulationSize = 0;
    m_Reported.Clear();
}

void CContainer::PrepareEverything(unsigned int nPopulation) {
    float fTotalHeight = 0.0F;
    for (const CPolygon& polygon : m_Polygons) {
        fTotalHeight += polygon.m_BoundingBoxMax.y - polygon.m_BoundingBoxMin.y;
    }
    m_fTotalHeight = fTotalHeight;

    CChromosome fresh;
    fresh.SetGeneCount(static_cast<int>(m_Polygons.size()));
    m_Population.reserve(m_Population.size() + nPopulation);
    for (unsigned int i = 0; i < nPopulation && !m_bAbandoned; ++i) {
        m_Population.push_back(fresh);
    }
    m_nPopulationSize = static_cast<int>(m_Population.size());
}

void CContainer::ValidateChromosome(CChromosome& chromosome) const {
    for (SGene& gene : chromosome.Genes()) {
        if (gene.m_nPolygon < 0 || gene.m_nPolygon >= static_cast<int>(m_Polygons.size())) {
            continue;
        }
        const CPolygon& polygon = m_Polygons[static_cast<size_t>(gene.m_nPolygon)];
        // "not at or beyond the edge" rather than "before it": an offset that is not a number is reset too.
        if (!(polygon.m_BoundingBoxMin.x + gene.m_fX >= 0.0F)) {
            gene.m_fX = -polygon.m_BoundingBoxMin.x;
        }
        if (polygon.m_BoundingBoxMax.x + gene.m_fX > m_fContainerWidth) {
            gene.m_fX = m_fContainerWidth - polygon.m_BoundingBoxMax.x;
        }
    }
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

float CContainer::PlaceChromosome(CChromosome const& chromosome, std::vector<CPolygon>& placed,
                                  CContactSink* pContacts) const {
    CPlacement placement(m_Polygons, m_fTotalHeight, m_fContainerWidth);
    const float fFitness = placement.Place(chromosome.Genes(), pContacts);
    placed.clear();
    placed.reserve(placement.Drops().size());
    for (const SDrop& drop : placement.Drops()) {
        placed.push_back(m_Polygons[static_cast<size_t>(drop.m_nPolygon)]);
        placed.back().m_ReferencePoint = drop.m_ReferencePoint;
    }
    return fFitness;
}

CChromosome CContainer::CopyBestChromosome() const {
    const std::lock_guard guard(m_BestGuard);
    return m_BestChromosome;
}

void CContainer::ReplaceBestChromosome(const CChromosome& chromosome) {
    const std::lock_guard guard(m_BestGuard);
    m_BestChromosome = chromosome;
}
