#include "CPlacement.h"

#include <algorithm>
#include <cstdlib>

CPlacement::CPlacement(std::span<const CPolygon> polygons, float fTotalHeight, float /*fStripWidth*/)
    : m_Polygons(polygons), m_fTotalHeight(fTotalHeight), m_fStartY(2.0F * fTotalHeight) {}

float CPlacement::Place(std::span<const SGene> genes, CContactSink* pContacts) {
    m_Sorted.assign(genes.begin(), genes.end());
    std::qsort(m_Sorted.data(), m_Sorted.size(), sizeof(SGene), GeneSortCallBack);
    m_Drops.clear();
    float fMaxTop = 0.0F;
    for (const SGene& gene : m_Sorted) {
        if (gene.m_nPolygon < 0 || gene.m_nPolygon >= static_cast<int>(m_Polygons.size())) {
            continue;
        }
        const CPolygon& polygon = m_Polygons[static_cast<size_t>(gene.m_nPolygon)];
        SDrop drop{gene.m_nPolygon, {gene.m_fX, m_fStartY, polygon.m_ReferencePoint.z}};
        const SRest rest = FindRest(drop);
        drop.m_ReferencePoint.y = m_fStartY - rest.m_fFall;
        m_Drops.push_back(drop);
        if (pContacts != nullptr) {
            pContacts->ContactFound(rest.m_Contact);
        }
        fMaxTop = std::max(fMaxTop, drop.m_ReferencePoint.y + polygon.m_BoundingBoxMax.y);
    }
    return m_fTotalHeight - fMaxTop;
}

CPlacement::SRest CPlacement::FindRest(const SDrop& falling) const {
    const CPolygon& polygon = m_Polygons[static_cast<size_t>(falling.m_nPolygon)];
    const mgVector3& at = falling.m_ReferencePoint;
    const SBox box = WorldBox(polygon, at);
    SRest rest{m_fStartY + polygon.m_BoundingBoxMin.y, {at.x + polygon.m_BoundingBoxMin.x, 0.0F, 0.0F}};
    for (auto obstacle = m_Drops.rbegin(); obstacle != m_Drops.rend(); ++obstacle) {
        const CPolygon& other = m_Polygons[static_cast<size_t>(obstacle->m_nPolygon)];
        const SBox otherBox = WorldBox(other, obstacle->m_ReferencePoint);
        // An obstacle below the resting level found so far is not asked. This is more than a shortcut: a
        // corner in line with a vertical side would report a gap of zero from any depth.
        const float fBottom = m_fStartY - rest.m_fFall + polygon.m_BoundingBoxMin.y;
        if (!CanTouch(box, otherBox) || !(otherBox.m_fTop >= fBottom)) {
            continue;
        }
        const SApproach approach = FindApproach(polygon, at, other, obstacle->m_ReferencePoint);
        if (approach.m_bFound && rest.m_fFall > approach.m_fDistance) {
            rest = {approach.m_fDistance, {approach.m_fContactX, approach.m_fContactY, 0.0F}};
        }
    }
    return rest;
}
