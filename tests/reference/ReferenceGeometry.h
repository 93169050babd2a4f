#pragma once

#include "geom/CPolygon.h"

namespace nestrix {

/// The plain, slow counterpart of the engine, which the tests compare it with bit for bit. Nothing here is
/// clever: every step stands as one would explain it, polygons are copied and every pair is tried. It shares
/// the plain records with the engine and none of its operations.
namespace reference {

/// Does a point meet a segment straight below it (downward) or above it (upward), and at which height?
/// pHitY may be null; it is written on a hit only.
bool DoesPointHitDownward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                          const mgVector3& direction, float* pHitY);
bool DoesPointHitUpward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                        const mgVector3& direction, float* pHitY);

/// Edges, classes and profiles of a polygon that has nothing but its vertices.
void Process(CPolygon& polygon);

/// How far `moving` can fall before it touches `other`, both at their reference points, and where. The
/// outputs may be null; the contact is written only when there is one.
bool GetApproachDistanceFromTop(const CPolygon& moving, const CPolygon& other, float* pDistance,
                                float* pContactX, float* pContactY);

}  // namespace reference

}  // namespace nestrix
