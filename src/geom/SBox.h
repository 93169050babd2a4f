#pragma once

#include "geom/CPolygon.h"

namespace nestrix {

/// A polygon's bounding box in world coordinates, each edge rounded to single precision.
struct SBox {
    float m_fLeft = 0.0F;
    float m_fRight = 0.0F;
    float m_fBottom = 0.0F;
    float m_fTop = 0.0F;
};

[[nodiscard]] inline SBox WorldBox(const CPolygon& polygon, const mgVector3& at) {
    return {polygon.m_BoundingBoxMin.x + at.x, polygon.m_BoundingBoxMax.x + at.x,
            polygon.m_BoundingBoxMin.y + at.y, polygon.m_BoundingBoxMax.y + at.y};
}

/// Whether a polygon that falls from `falling` may touch the one placed at `placed`: the x ranges overlap or
/// touch, and the placed one neither lies above the falling one nor wholly below the floor.
[[nodiscard]] inline bool CanTouch(const SBox& falling, const SBox& placed) {
    return falling.m_fRight >= placed.m_fLeft && !(falling.m_fLeft > placed.m_fRight) &&
           falling.m_fTop >= placed.m_fBottom && !(0.0F > placed.m_fTop);
}

}  // namespace nestrix
