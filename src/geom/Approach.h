#pragma once

#include "base/CRelaxed.h"
#include "geom/CPolygon.h"

namespace nestrix {

/// The contact that stops a vertical fall.
struct SApproach {
    bool m_bFound = false;     ///< whether the two profiles meet at all
    float m_fDistance = 0.0F;  ///< the vertical gap, positive where the moving polygon can still fall
    float m_fContactX = 0.0F;  ///< world coordinates, meaningful only with m_bFound
    float m_fContactY = 0.0F;
};

/// How far `moving`, its reference point at `movingAt`, can fall onto `obstacle` at `obstacleAt`. The
/// polygons' own reference points are not read, so that nobody has to copy a polygon to move it.
///
/// Two passes look for candidates: the lower vertices of the moving polygon over the obstacle's upper edges,
/// then the obstacle's upper vertices under the lower edges of the moving polygon. The smallest gap wins,
/// the earlier candidate on a tie. A vertical side of the moving polygon exactly in line with an obstacle's
/// corner gives a gap of zero, however high it is, and a negative one where the two overlap (see
/// DoesPointHitUpward).
///
/// @param pAbandoned once this is true, the answer is of no use any more, and comes soon. May be null.
[[nodiscard]] SApproach FindApproach(const CPolygon& moving, const mgVector3& movingAt,
                                     const CPolygon& obstacle, const mgVector3& obstacleAt,
                                     const CRelaxed<bool>* pAbandoned = nullptr);

}  // namespace nestrix
