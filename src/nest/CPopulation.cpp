#include "nest/CPopulation.h"

#include <algorithm>
#include <cmath>

namespace nestrix {

namespace {

/// Heights that differ by less, as a share, are the same.
constexpr double SAME_HEIGHT = 1e-4;

}  // namespace

void CPopulation::Enter(const SSolution& packing) {
    if (std::ranges::any_of(m_Packings, [&](const SSolution& known) {
            return std::abs(known.m_Height - packing.m_Height) <= SAME_HEIGHT * packing.m_Height;
        })) {
        return;
    }
    if (m_Packings.size() < m_nMost) {
        m_Packings.push_back(packing);
        return;
    }
    const auto highest = std::ranges::max_element(m_Packings, {}, &SSolution::m_Height);
    if (packing.m_Height < highest->m_Height) {
        *highest = packing;
    }
}

std::pair<const SSolution&, const SSolution&> CPopulation::DrawTwo(CRandom& random) const {
    const size_t nFirst = random.Index(m_Packings.size());
    const size_t nSecond = (nFirst + 1 + random.Index(m_Packings.size() - 1)) % m_Packings.size();
    return {m_Packings[nFirst], m_Packings[nSecond]};
}

}  // namespace nestrix
