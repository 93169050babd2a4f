#pragma once

#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"

namespace nestrix {

/// An affine map: x' = xx · x + xy · y + x0, y' = yx · x + yy · y + y0.
struct SMap {
    double m_XX = 1.0;
    double m_XY = 0.0;
    double m_YX = 0.0;
    double m_YY = 1.0;
    double m_X0 = 0.0;
    double m_Y0 = 0.0;

    [[nodiscard]] SPoint operator()(SPoint point) const;
    [[nodiscard]] SPath operator()(const SPath& path) const;
    [[nodiscard]] SDrawnText operator()(const SDrawnText& text) const;

    /// First `second`, then `first`.
    friend SMap operator*(const SMap& first, const SMap& second);
};

/// Where a placement takes a piece: from the coordinates of its shape, as they were drawn, into the strip.
/// The same as Laid and the placement do to the points on the grid, but for their rounding.
[[nodiscard]] SMap MapOf(const SShape& shape, const SFreePacking& packing, const SFreePlacement& placement);

}  // namespace nestrix
