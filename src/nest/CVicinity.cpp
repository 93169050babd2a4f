#include "nest/CVicinity.h"

#include <cmath>

namespace nestrix {

void CVicinity::Enter(const SPlace& place, double reach) {
    m_Centre = place;
    m_Reach = reach;
    m_Neighbours.clear();
    CLayout& layout = m_Overlap.Layout();
    layout.VisitVicinity(place, reach, [&](size_t nOther) {
        if (nOther != m_Overlap.Item()) {
            const SPlace& other = layout.PlaceOf(nOther);
            m_Neighbours.push_back({layout.Fields().WayOf(place.m_nVersion, other.m_nVersion), other.m_At,
                                    m_Overlap.FactorOf(nOther), static_cast<uint32_t>(nOther)});
        }
        return true;
    });
}

void CVicinity::Follow(SPoint at) {
    const SPoint way = at - m_Centre.m_At;
    if (std::abs(way.m_X) > m_Reach || std::abs(way.m_Y) > m_Reach) {
        Enter({at, m_Centre.m_nVersion}, m_Reach);
    }
}

double CVicinity::ValueAt(SPoint at, double limit) {
    Follow(at);
    double value = 0.0;
    for (const SNeighbour& other : m_Neighbours) {
        value += other.m_Way.m_pField->DepthAt(other.m_Way.ToField(at - other.m_At), other.m_Factor,
                                               limit - value);
        if (value >= limit) {
            break;
        }
    }
    return value;
}

double CVicinity::GatherHinges(SPoint at, double beyond, std::vector<CHingeModel::SHinge>& hinges) {
    Follow(at);
    double value = 0.0;
    hinges.clear();
    for (const SNeighbour& other : m_Neighbours) {
        const SDepth depth = other.m_Way.m_pField->FindWayOut(other.m_Way.ToField(at - other.m_At));
        if (depth.m_Depth > 0.0) {
            value += other.m_Factor * depth.m_Depth;
            hinges.push_back(
                {other.m_nItem, depth.m_Depth + beyond, other.m_Way.FromField(depth.m_Out), other.m_Factor});
        }
    }
    return value;
}

}  // namespace nestrix
