#include "formats/json/PackingRecord.h"
#include "formats/json/PolygonRing.h"

namespace nestrix {

namespace {

SPackingFigures FiguresOf(const SFreeRecord& record) {
    const SFreePacking& packing = record.m_Packing;
    return {packing.m_Placed.size(), packing.m_Grid.Length(packing.m_nHeight),
            DensityOf(record.m_Pieces, packing)};
}

SPackingFigures FiguresOf(const SDroppedRecord& record) {
    const SPacking& packing = record.m_Packing;
    double area = 0.0;
    for (const SPlacedPiece& placed : packing.m_Placed) {
        const auto nPiece = static_cast<size_t>(placed.m_nPiece);
        area += AreaOf({RingOf(record.m_Pieces[nPiece]), record.m_Holes[nPiece]});
    }
    const double height = packing.m_fHeight;
    const double taken = static_cast<double>(packing.m_Strip.m_fWidth) * height;
    return {packing.m_Placed.size(), height, taken > 0.0 ? area / taken : 0.0};
}

}  // namespace

SPackingFigures FiguresOf(const SPackingRecord& record) {
    return std::visit([](const auto& packing) { return FiguresOf(packing); }, record.m_Packing);
}

}  // namespace nestrix
