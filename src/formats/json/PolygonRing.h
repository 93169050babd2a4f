#pragma once

#include "geom/CPolygon.h"
#include "packing/SPiece.h"

namespace nestrix {

/// The outline of a polygon, each coordinate to the last bit.
[[nodiscard]] CRing RingOf(const CPolygon& polygon);

/// The polygon with this outline and box, its profiles analysed: as its file would give it.
/// @param outline, corners single precision numbers; the lower left corner first.
[[nodiscard]] CPolygon PolygonOf(const CRing& outline, const SPoint& lowerLeft, const SPoint& upperRight);

}  // namespace nestrix
