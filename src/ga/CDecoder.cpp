#include "ga/CDecoder.h"

#include <cstdlib>

namespace nestrix {

CDecoder::CDecoder(std::span<const CPolygon> polygons, const SStrip& strip, float fStackedHeight,
                   const CRelaxed<bool>* pAbandoned)
    : m_nPolygons(polygons.size()),
      m_fStackedHeight(fStackedHeight),
      m_Placement(polygons, strip, fStackedHeight, pAbandoned) {}

float CDecoder::Evaluate(std::span<const SGene> genes, CContactSink* pContacts) {
    m_Sorted.clear();
    for (const SGene& gene : genes) {
        m_Sorted.push_back({gene});
    }
    if (!m_Sorted.empty()) {  // qsort takes no null pointer
        std::qsort(m_Sorted.data(), m_Sorted.size(), sizeof(SSortedGene), GeneSortCallBack);
    }
    m_Moves.clear();
    for (const SGene& gene : m_Sorted) {
        if (gene.m_nPolygon >= 0 && static_cast<size_t>(gene.m_nPolygon) < m_nPolygons) {
            m_Moves.push_back({gene.m_nPolygon, gene.m_fX});
        }
    }
    return m_fStackedHeight - m_Placement.Place(m_Moves, pContacts);
}

SPacking CDecoder::Packing() const {
    SPacking packing;
    CopyPacking(packing);
    return packing;
}

}  // namespace nestrix
