#include "nest/CItemMover.h"

#include <cmath>

namespace nestrix {

CItemMover::CItemMover(CLayout& layout, const CPairWeights& weights, CRandom& random)
    : m_Layout(layout),
      m_Random(random),
      m_Overlap(layout, weights),
      m_Sampler(m_Overlap, random),
      m_Refiner(m_Overlap, random) {}

bool CItemMover::Move(size_t nItem) {
    m_Layout.Fields().ForgetReplaced();
    const CItemOverlap::CScope scope(m_Overlap, nItem);
    const SPlace& place = m_Layout.PlaceOf(nItem);
    const SCandidate present{place, m_Overlap.ValueAt(place, HUGE_VAL)};
    if (present.m_Value <= 0.0) {
        return false;
    }
    const SCandidate found = FindPlace(present);
    if (found.m_Value > present.m_Value) {
        return false;
    }
    m_Layout.Move(nItem, found.m_Place);
    return true;
}

SCandidate CItemMover::FindPlace(const SCandidate& present) {
    SCandidate best = m_Sampler.FindBest();
    SCandidate near = present;
    m_Refiner.Refine(near);
    if (best.m_Value < HUGE_VAL) {
        m_Refiner.Refine(best);
    }
    const bool bOther = best.m_Value < near.m_Value || (best.m_Value == near.m_Value && m_Random.Toss());
    return bOther ? best : near;
}

}  // namespace nestrix
