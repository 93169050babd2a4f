#pragma once

#include <span>

#include "geom/CPolygon.h"
#include "geom/SBox.h"

namespace nestrix {

/// One polygon of a set that falls, or has come to rest, in the strip.
struct SDrop {
    int m_nPolygon = 0;          ///< index in the polygon set
    mgVector3 m_ReferencePoint;  ///< where it is
    SBox m_Box;                  ///< its bounding box there
};

/// The level test: whether an obstacle rises to where the falling polygon would rest after a fall of fFall. A
/// lower one is not asked how it would stop the polygon. This is more than a shortcut: a corner in line with
/// a vertical side would report a gap of zero from any depth.
/// @param fBoxBottom of the falling polygon's bounding box, local.
[[nodiscard]] inline bool PassesLevelTest(const SDrop& falling, float fBoxBottom, float fFall,
                                          const SDrop& obstacle) {
    return obstacle.m_Box.m_fTop >= falling.m_ReferencePoint.y - fFall + fBoxBottom;
}

}  // namespace nestrix
