#include "CPlacement.h"

#include <algorithm>
#include <cstdlib>
#include <optional>

#include "Approach.h"

CPlacement::CPlacement(std::span<const CPolygon> polygons, float fTotalHeight, float fStripWidth,
                       const CRelaxed<bool>* pAbandoned)
    : m_Polygons(polygons),
      m_fTotalHeight(fTotalHeight),
      m_fStartY(2.0F * fTotalHeight),
      m_Field(polygons, fStripWidth, m_fStartY, pAbandoned),
      m_pAbandoned(pAbandoned) {}

float CPlacement::Place(std::span<const SGene> genes, CContactSink* pContacts) {
    SortGenes(genes);
    m_Drops.clear();
    m_bShortCuts = pContacts == nullptr && CanTakeShortCuts();
    if (m_bShortCuts) {
        m_Field.Clear(m_Sorted.size());
    } else {
        ++m_Counts.m_nWalkedLayouts;
    }
    float fMaxTop = 0.0F;
    for (const SGene& gene : m_Sorted) {
        if (IsMade(m_pAbandoned)) {
            break;
        }
        const CPolygon& polygon = m_Polygons[static_cast<size_t>(gene.m_nPolygon)];
        SDrop drop{gene.m_nPolygon, {gene.m_fX, m_fStartY, polygon.m_ReferencePoint.z}, {}};
        drop.m_Box = WorldBox(polygon, drop.m_ReferencePoint);
        drop.m_ReferencePoint.y = m_fStartY - FindFall(drop, pContacts);
        drop.m_Box = WorldBox(polygon, drop.m_ReferencePoint);
        if (m_bShortCuts) {
            m_Field.Add(drop, static_cast<int>(m_Drops.size()));
        }
        m_Drops.push_back(drop);
        fMaxTop = std::max(fMaxTop, drop.m_Box.m_fTop);
    }
    return m_fTotalHeight - fMaxTop;
}

void CPlacement::SortGenes(std::span<const SGene> genes) {
    m_Sorted.clear();
    for (const SGene& gene : genes) {
        m_Sorted.push_back({gene});
    }
    if (!m_Sorted.empty()) {  // qsort takes no null pointer
        std::qsort(m_Sorted.data(), m_Sorted.size(), sizeof(SSortedGene), GeneSortCallBack);
    }
    std::erase_if(m_Sorted, [this](const SGene& gene) {
        return gene.m_nPolygon < 0 || gene.m_nPolygon >= static_cast<int>(m_Polygons.size());
    });
}

bool CPlacement::CanTakeShortCuts() const {
    return m_Field.IsUsable() && std::all_of(m_Sorted.begin(), m_Sorted.end(), [this](const SGene& gene) {
               return m_Field.IsInReach(gene.m_fX);
           });
}

float CPlacement::FindFall(const SDrop& falling, CContactSink* pContacts) {
    if (m_bShortCuts) {
        if (const std::optional<float> fall = m_Field.FindFall(falling, m_Drops)) {
            ++m_Counts.m_nShort;
            return *fall;
        }
    }
    ++m_Counts.m_nWalked;
    const SRest rest = Walk(falling);
    if (pContacts != nullptr) {
        pContacts->ContactFound(rest.m_Contact);
    }
    return rest.m_fFall;
}

CPlacement::SRest CPlacement::Walk(const SDrop& falling) const {
    const CPolygon& polygon = m_Polygons[static_cast<size_t>(falling.m_nPolygon)];
    const mgVector3& at = falling.m_ReferencePoint;
    const mgVector3& boxMin = polygon.m_BoundingBoxMin;
    SRest rest{at.y + boxMin.y, {at.x + boxMin.x, 0.0F, 0.0F}};
    for (auto obstacle = m_Drops.rbegin(); obstacle != m_Drops.rend(); ++obstacle) {
        if (!CanTouch(falling.m_Box, obstacle->m_Box) ||
            !IsAsked(falling, boxMin.y, rest.m_fFall, *obstacle)) {
            continue;
        }
        const CPolygon& other = m_Polygons[static_cast<size_t>(obstacle->m_nPolygon)];
        const SApproach approach = FindApproach(polygon, at, other, obstacle->m_ReferencePoint, m_pAbandoned);
        if (approach.m_bFound && rest.m_fFall > approach.m_fDistance) {
            rest = {approach.m_fDistance, {approach.m_fContactX, approach.m_fContactY, 0.0F}};
        }
    }
    return rest;
}
