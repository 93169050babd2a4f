#pragma once

#include "display/CPolyDisplay.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix::support {

/// Pixels per unit of the canvas of 400 x 600 pixels.
inline constexpr float CANVAS_SCALE = 400.0F / 480.0F;

/// A position in the strip as a pixel of the canvas.
[[nodiscard]] constexpr float PixelX(float fX) {
    return (fX + 40.0F) * CANVAS_SCALE;
}

[[nodiscard]] constexpr float PixelY(float fY) {
    return (fY + 20.0F) * CANVAS_SCALE;
}

inline void AddPlaced(CPolyDisplay& display, const CPolygon& polygon, float fX, float fY) {
    CPolygon placed = PlacedAt(polygon, fX, fY);
    display.AddPolygon(placed);
}

}  // namespace nestrix::support
