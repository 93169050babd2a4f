#pragma once

#include <span>
#include <vector>

#include "geom/CPolygon.h"
#include "packing/SStrip.h"

namespace nestrix {

/// One piece of a set where it came to lie.
struct SPlacedPiece {
    int m_nPiece = 0;  ///< index in the set
    mgVector3 m_At;    ///< its reference point in the strip

    friend bool operator==(const SPlacedPiece&, const SPlacedPiece&) = default;
};

/// Which pieces lie where in a strip. A plain value: whatever draws, prints or saves a result takes it,
/// beside the set of pieces.
struct SPacking {
    SStrip m_Strip;
    std::vector<SPlacedPiece> m_Placed;  ///< in the order of placing
    float m_fHeight = 0.0F;              ///< the highest top of any piece's bounding box; at least 0

    friend bool operator==(const SPacking&, const SPacking&) = default;
};

/// Whether the height and all places are finite. Pieces too large for single precision have no place.
[[nodiscard]] bool IsFinite(const SPacking& packing);

/// Copies of the placed pieces, each at its reference point, in the order of placing.
[[nodiscard]] std::vector<CPolygon> PlacedPolygons(std::span<const CPolygon> pieces, const SPacking& packing);

/// The height of all pieces' bounding boxes stacked in one column, summed in the set's order in single
/// precision.
[[nodiscard]] float StackedHeight(std::span<const CPolygon> pieces);

}  // namespace nestrix
