#include "batch/DropPlan.h"

#include <algorithm>

namespace nestrix {

namespace {

/// The corner of the outline that a placement on the grid speaks of.
SPoint LowerLeft(const CRing& outline) {
    SPoint corner = outline.empty() ? SPoint() : outline.front();
    for (const SPoint point : outline) {
        corner = {std::min(corner.m_X, point.m_X), std::min(corner.m_Y, point.m_Y)};
    }
    return corner;
}

}  // namespace

SFreePacking OnGrid(const SPacking& packing, const SInputSet& set) {
    SFreePacking onGrid;
    onGrid.m_Strip.m_Width = packing.m_Strip.m_fWidth;
    onGrid.m_Grid = GridFor(onGrid.m_Strip.m_Width);
    for (const SPlacedPiece& placed : packing.m_Placed) {
        const size_t nPiece = set.m_Order[static_cast<size_t>(placed.m_nPiece)];
        const SPoint corner = LowerLeft(set.m_Pieces[nPiece].m_Shape.m_Outline);
        const SGridPoint at{onGrid.m_Grid.Count(placed.m_At.x + corner.m_X),
                            onGrid.m_Grid.Count(placed.m_At.y + corner.m_Y)};
        onGrid.m_Placed.push_back({static_cast<int>(nPiece), false, 0.0, at});
    }
    onGrid.m_nHeight = HeightOf(PlacedShapes(set.m_Pieces, onGrid));
    return onGrid;
}

}  // namespace nestrix
