#include "packing/SPacking.h"

#include <algorithm>
#include <cmath>

namespace nestrix {

bool IsFinite(const SPacking& packing) {
    return std::isfinite(packing.m_fHeight) &&
           std::all_of(packing.m_Placed.begin(), packing.m_Placed.end(), [](const SPlacedPiece& piece) {
               return std::isfinite(piece.m_At.x) && std::isfinite(piece.m_At.y);
           });
}

std::vector<CPolygon> PlacedPolygons(std::span<const CPolygon> pieces, const SPacking& packing) {
    std::vector<CPolygon> placed;
    placed.reserve(packing.m_Placed.size());
    for (const SPlacedPiece& piece : packing.m_Placed) {
        placed.push_back(pieces[static_cast<size_t>(piece.m_nPiece)]);
        placed.back().m_ReferencePoint = piece.m_At;
    }
    return placed;
}

float StackedHeight(std::span<const CPolygon> pieces) {
    float fHeight = 0.0F;
    for (const CPolygon& polygon : pieces) {
        fHeight += polygon.m_BoundingBoxMax.y - polygon.m_BoundingBoxMin.y;
    }
    return fHeight;
}

}  // namespace nestrix
