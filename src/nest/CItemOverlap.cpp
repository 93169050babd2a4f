#include "nest/CItemOverlap.h"

#include <cmath>

namespace nestrix {

CItemOverlap::CItemOverlap(CLayout& layout, const CPairWeights& weights)
    : m_Layout(layout), m_Weights(weights) {
    const CPackProblem& problem = layout.Problem();
    const double mean = problem.TotalArea() / static_cast<double>(problem.Items().size());
    for (const size_t nPiece : problem.Items()) {
        // The fourth root of the area.
        m_Scales.push_back(std::sqrt(std::sqrt(problem.AreaOf(nPiece) / mean)));
    }
    m_Factors = m_Scales;
}

void CItemOverlap::Begin(size_t nItem) {
    m_nItem = nItem;
    for (const CPairWeights::SWeight& weight : m_Weights.RowOf(nItem)) {
        m_Factors[weight.m_nOther] = m_Scales[weight.m_nOther] * weight.m_Weight;
    }
    m_Factors[nItem] = 0.0;
}

void CItemOverlap::End() {
    for (const CPairWeights::SWeight& weight : m_Weights.RowOf(m_nItem)) {
        m_Factors[weight.m_nOther] = m_Scales[weight.m_nOther];
    }
    m_Factors[m_nItem] = m_Scales[m_nItem];
}

double CItemOverlap::SizeOfItem() const {
    const CPackProblem& problem = m_Layout.Problem();
    return std::sqrt(problem.AreaOf(problem.Items()[m_nItem]));
}

const std::vector<size_t>& CItemOverlap::VersionsOfItem() const {
    return m_Layout.VersionsOf(m_nItem);
}

double CItemOverlap::ValueAt(const SPlace& place, double limit) const {
    double value = 0.0;
    m_Layout.VisitNeighbours(place, [&](size_t nOther) {
        if (nOther != m_nItem) {
            const SPlace& other = m_Layout.PlaceOf(nOther);
            value += m_Layout.Fields().DepthOf(place.m_nVersion, place.m_At, other.m_nVersion, other.m_At,
                                               m_Factors[nOther], limit - value);
        }
        return value < limit;
    });
    return value;
}

void CItemOverlap::CollectLeastDepths(size_t nVersion, std::vector<SLeastDepths>& depths) const {
    depths.clear();
    for (size_t nOther = 0; nOther < m_Layout.Count(); ++nOther) {
        if (nOther != m_nItem) {
            const SPlace& other = m_Layout.PlaceOf(nOther);
            const CFieldTable::SWay way = m_Layout.Fields().WayOf(nVersion, other.m_nVersion);
            depths.push_back(way.m_pField->LeastDepths(way.m_Direction, other.m_At, m_Factors[nOther]));
        }
    }
}

}  // namespace nestrix
