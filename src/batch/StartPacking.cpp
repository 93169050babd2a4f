#include "batch/StartPacking.h"

#include <algorithm>
#include <vector>

namespace nestrix {

namespace {

bool IsSamePiece(const SPiece& a, const SPiece& b) {
    return a.m_Name == b.m_Name && a.m_Shape == b.m_Shape;
}

}  // namespace

SFreePacking StartFrom(std::span<const SPiece> earlier, const SFreePacking& packing,
                       std::span<const SPiece> pieces, const SFreeStrip& strip) {
    SFreePacking start;
    start.m_Strip = strip;
    start.m_Grid = GridFor(strip.m_Width);
    std::vector<int> placed(pieces.size(), 0);
    for (SFreePlacement placement : packing.m_Placed) {
        const SPiece& sought = earlier[static_cast<size_t>(placement.m_nPiece)];
        // One of the pieces that look alike and of which a copy is still to be placed.
        size_t nPiece = 0;
        while (nPiece < pieces.size() &&
               !(IsSamePiece(pieces[nPiece], sought) && placed[nPiece] < pieces[nPiece].m_nQuantity)) {
            ++nPiece;
        }
        if (nPiece < pieces.size()) {
            ++placed[nPiece];
            placement.m_nPiece = static_cast<int>(nPiece);
            placement.m_At = {start.m_Grid.Count(packing.m_Grid.Length(placement.m_At.m_nX)),
                              start.m_Grid.Count(packing.m_Grid.Length(placement.m_At.m_nY))};
            start.m_Placed.push_back(placement);
        }
    }
    start.m_nHeight = HeightOf(PlacedShapes(pieces, start));
    return start;
}

}  // namespace nestrix
