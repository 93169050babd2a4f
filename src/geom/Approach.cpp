#include "geom/Approach.h"

#include "geom/HitTest.h"

using namespace nestrix;

namespace {

/// Keeps the candidate with the smallest gap, the earliest on a tie.
void Offer(SApproach& best, float fGap, float fContactX, float fContactY) {
    if (!best.m_bFound || fGap < best.m_fDistance) {
        best = {true, fGap, fContactX, fContactY};
    }
}

}  // namespace

SApproach nestrix::FindApproach(const CPolygon& moving, const mgVector3& movingAt, const CPolygon& obstacle,
                                const mgVector3& obstacleAt, const CRelaxed<bool>* pAbandoned) {
    SApproach best;
    for (const CPoint& vertex : moving.m_FrontPoints) {
        if (IsMade(pAbandoned)) {
            return best;
        }
        const mgVector3 point = vertex.m_Position + movingAt;
        for (const CLine& edge : obstacle.m_BackLines) {
            const mgVector3 start = obstacle.PositionOf(edge.m_nStart) + obstacleAt;
            const mgVector3 end = obstacle.PositionOf(edge.m_nEnd) + obstacleAt;
            float fHitY = 0.0F;
            if (DoesPointHitDownward(point, start, end, edge.m_Direction, &fHitY)) {
                Offer(best, point.y - fHitY, point.x, fHitY);
            }
        }
    }
    for (const CPoint& vertex : obstacle.m_BackPoints) {
        if (IsMade(pAbandoned)) {
            return best;
        }
        const mgVector3 point = vertex.m_Position + obstacleAt;
        for (const CLine& edge : moving.m_FrontLines) {
            const mgVector3 start = moving.PositionOf(edge.m_nStart) + movingAt;
            const mgVector3 end = moving.PositionOf(edge.m_nEnd) + movingAt;
            float fHitY = 0.0F;
            if (DoesPointHitUpward(point, start, end, edge.m_Direction, &fHitY)) {
                Offer(best, fHitY - point.y, point.x, point.y);
            }
        }
    }
    return best;
}

bool CPolygon::GetApproachDistanceFromTop(CPolygon& other, float* pDistance, float* pContactX,
                                          float* pContactY) const {
    const SApproach approach = FindApproach(*this, m_ReferencePoint, other, other.m_ReferencePoint);
    if (pDistance != nullptr) {
        *pDistance = approach.m_fDistance;
    }
    if (approach.m_bFound && pContactX != nullptr) {
        *pContactX = approach.m_fContactX;
    }
    if (approach.m_bFound && pContactY != nullptr) {
        *pContactY = approach.m_fContactY;
    }
    return approach.m_bFound;
}
