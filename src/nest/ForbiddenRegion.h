#pragma once

#include <vector>

#include "nest/ConvexParts.h"

namespace nestrix {

/// A half of the plane: the points p with Dot(normal, p) < offset.
struct SHalfPlane {
    SPoint m_Normal;  ///< of length 1
    double m_Offset = 0.0;

    /// How far outside a point lies; negative inside.
    [[nodiscard]] double Outside(SPoint point) const { return Dot(m_Normal, point) - m_Offset; }
};

/// Where a convex part may not be: all differences (its place less that of the other) for which the two are
/// nearer than the spacing. Convex: what its half-planes have in common.
struct SForbiddenRegion {
    std::vector<SHalfPlane> m_Sides;  ///< counter-clockwise
    std::vector<SPoint> m_Corners;    ///< m_Corners[i] is where m_Sides[i] begins
    SPlaneBox m_Box;
};

/// The forbidden region of two convex parts: the Minkowski sum of the one that stays and the mirror image of
/// the one that moves, its sides moved outward by `outward` (inward where negative). Where that has corners
/// farther off than the distance asked for, they are cut by further sides: at most one part in fifty of
/// `outward` is given away.
[[nodiscard]] SForbiddenRegion FindForbiddenRegion(const CConvexPart& stays, const CConvexPart& moves,
                                                   double outward);

/// The side of such a region that a point is farthest outside of, or least inside.
[[nodiscard]] SHalfPlane FindFarthestSide(const CConvexPart& stays, const CConvexPart& moves, double outward,
                                          SPoint point);

}  // namespace nestrix
