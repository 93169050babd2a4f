#include "tests/reference/ReferencePlacement.h"

#include <algorithm>
#include <cstdlib>

#include "tests/reference/ReferenceGeometry.h"

namespace nestrix::reference {
namespace {

int CompareGenes(const void* a, const void* b) {
    return static_cast<const SGene*>(a)->m_nOrder - static_cast<const SGene*>(b)->m_nOrder;
}

bool IsKnown(const SGene& gene, const std::vector<CPolygon>& polygons) {
    return gene.m_nPolygon >= 0 && gene.m_nPolygon < static_cast<int>(polygons.size());
}

/// Drops one polygon onto those placed before it; returns where it touches.
mgVector3 Drop(CPolygon& falling, const std::vector<CPolygon>& placed, float fStartY) {
    std::vector<CPolygon> scratch;
    GetCollidablePolygonList(falling, placed, scratch);
    float d = fStartY + falling.m_BoundingBoxMin.y;
    mgVector3 contact = {falling.m_ReferencePoint.x + falling.m_BoundingBoxMin.x, 0.0F, 0.0F};
    for (size_t i = scratch.size(); i > 0; --i) {
        const CPolygon& q = scratch[i - 1];
        const float fTop = q.m_BoundingBoxMax.y + q.m_ReferencePoint.y;
        const float fBottom = fStartY - d + falling.m_BoundingBoxMin.y;
        if (!(fTop >= fBottom)) {
            continue;
        }
        float fDistance = 0.0F;
        float x = 0.0F;
        float y = 0.0F;
        if (GetApproachDistanceFromTop(falling, q, &fDistance, &x, &y) && d > fDistance) {
            d = fDistance;
            contact = {x, y, 0.0F};
        }
    }
    falling.m_ReferencePoint.y = fStartY - d;
    return contact;
}

}  // namespace

float TotalHeight(const std::vector<CPolygon>& polygons) {
    float fTotal = 0.0F;
    for (const CPolygon& polygon : polygons) {
        const float fHeight = polygon.m_BoundingBoxMax.y - polygon.m_BoundingBoxMin.y;
        fTotal = fTotal + fHeight;
    }
    return fTotal;
}

void Clamp(std::span<SGene> genes, const std::vector<CPolygon>& polygons, float fStripWidth) {
    for (SGene& gene : genes) {
        if (!IsKnown(gene, polygons)) {
            continue;
        }
        const CPolygon& polygon = polygons.at(static_cast<size_t>(gene.m_nPolygon));
        if (!(polygon.m_BoundingBoxMin.x + gene.m_fX >= 0.0F)) {
            gene.m_fX = -polygon.m_BoundingBoxMin.x;
        }
        if (polygon.m_BoundingBoxMax.x + gene.m_fX > fStripWidth) {
            gene.m_fX = fStripWidth - polygon.m_BoundingBoxMax.x;
        }
    }
}

void GetCollidablePolygonList(const CPolygon& polygon, const std::vector<CPolygon>& placed,
                              std::vector<CPolygon>& collidable) {
    const float fLeft = polygon.m_BoundingBoxMin.x + polygon.m_ReferencePoint.x;
    const float fRight = polygon.m_BoundingBoxMax.x + polygon.m_ReferencePoint.x;
    const float fTop = polygon.m_BoundingBoxMax.y + polygon.m_ReferencePoint.y;
    for (const CPolygon& q : placed) {
        const float fLeftOfQ = q.m_BoundingBoxMin.x + q.m_ReferencePoint.x;
        const float fRightOfQ = q.m_BoundingBoxMax.x + q.m_ReferencePoint.x;
        const float fBottomOfQ = q.m_BoundingBoxMin.y + q.m_ReferencePoint.y;
        const float fTopOfQ = q.m_BoundingBoxMax.y + q.m_ReferencePoint.y;
        if (fRight >= fLeftOfQ && !(fLeft > fRightOfQ) && fTop >= fBottomOfQ && !(0.0F > fTopOfQ)) {
            collidable.push_back(q);
        }
    }
}

SPlainPacking Place(std::span<const SGene> genes, const std::vector<CPolygon>& polygons, float fTotalHeight) {
    std::vector<SGene> sorted(genes.begin(), genes.end());
    if (!sorted.empty()) {
        std::qsort(sorted.data(), sorted.size(), sizeof(SGene), CompareGenes);
    }
    SPlainPacking packing;
    float fMaxTop = 0.0F;
    const float fStartY = 2.0F * fTotalHeight;
    for (const SGene& gene : sorted) {
        if (!IsKnown(gene, polygons)) {
            continue;
        }
        CPolygon falling = polygons.at(static_cast<size_t>(gene.m_nPolygon));
        falling.m_ReferencePoint.x = gene.m_fX;
        falling.m_ReferencePoint.y = fStartY;
        packing.m_Contacts.push_back(Drop(falling, packing.m_Placed, fStartY));
        packing.m_Placed.push_back(falling);
        fMaxTop = std::max(fMaxTop, falling.m_ReferencePoint.y + falling.m_BoundingBoxMax.y);
    }
    packing.m_fFitness = fTotalHeight - fMaxTop;
    return packing;
}

}  // namespace nestrix::reference
