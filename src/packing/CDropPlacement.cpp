#include "packing/CDropPlacement.h"

#include <algorithm>
#include <optional>

#include "geom/Approach.h"

namespace nestrix {

CDropPlacement::CDropPlacement(std::span<const CPolygon> polygons, const SStrip& strip, float fStackedHeight,
                               const CRelaxed<bool>* pAbandoned)
    : m_Polygons(polygons),
      m_Strip(strip),
      m_fStartY(2.0F * fStackedHeight),
      m_Field(polygons, strip.m_fWidth, m_fStartY, pAbandoned),
      m_pAbandoned(pAbandoned) {}

float CDropPlacement::Place(std::span<const SMove> moves, CContactSink* pContacts) {
    m_Drops.clear();
    m_fHeight = 0.0F;
    m_bShortCuts = pContacts == nullptr && CanTakeShortCuts(moves);
    if (m_bShortCuts) {
        m_Field.Clear(moves.size());
    } else {
        ++m_Counts.m_nWalkedLayouts;
    }
    for (const SMove& move : moves) {
        if (IsMade(m_pAbandoned)) {
            break;
        }
        const SDrop drop = Drop(move, pContacts);
        if (m_bShortCuts) {
            m_Field.Add(drop, static_cast<int>(m_Drops.size()));
        }
        m_Drops.push_back(drop);
        m_fHeight = std::max(m_fHeight, drop.m_Box.m_fTop);
    }
    return m_fHeight;
}

void CDropPlacement::CopyPacking(SPacking& packing) const {
    packing.m_Strip = m_Strip;
    packing.m_fHeight = m_fHeight;
    packing.m_Placed.clear();
    packing.m_Placed.reserve(m_Drops.size());
    for (const SDrop& drop : m_Drops) {
        packing.m_Placed.push_back({drop.m_nPolygon, drop.m_ReferencePoint});
    }
}

SDrop CDropPlacement::Drop(const SMove& move, CContactSink* pContacts) {
    const CPolygon& polygon = m_Polygons[static_cast<size_t>(move.m_nPiece)];
    SDrop drop{move.m_nPiece, {move.m_fX, m_fStartY, polygon.m_ReferencePoint.z}, {}};
    drop.m_Box = WorldBox(polygon, drop.m_ReferencePoint);
    drop.m_ReferencePoint.y = m_fStartY - FindFall(drop, pContacts);
    drop.m_Box = WorldBox(polygon, drop.m_ReferencePoint);
    return drop;
}

bool CDropPlacement::CanTakeShortCuts(std::span<const SMove> moves) const {
    return m_Field.IsUsable() && std::all_of(moves.begin(), moves.end(), [this](const SMove& move) {
               return m_Field.CanTakeOffset(move.m_fX);
           });
}

float CDropPlacement::FindFall(const SDrop& falling, CContactSink* pContacts) {
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

CDropPlacement::SRest CDropPlacement::Walk(const SDrop& falling) const {
    const CPolygon& polygon = m_Polygons[static_cast<size_t>(falling.m_nPolygon)];
    const mgVector3& at = falling.m_ReferencePoint;
    const mgVector3& boxMin = polygon.m_BoundingBoxMin;
    SRest rest{at.y + boxMin.y, {at.x + boxMin.x, 0.0F, 0.0F}};
    for (auto obstacle = m_Drops.rbegin(); obstacle != m_Drops.rend(); ++obstacle) {
        if (!CanTouch(falling.m_Box, obstacle->m_Box) ||
            !PassesLevelTest(falling, boxMin.y, rest.m_fFall, *obstacle)) {
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

}  // namespace nestrix
