#include "nest/CFailures.h"

#include <algorithm>
#include <utility>

namespace nestrix {

void CFailures::Keep(SFailure failure) {
    m_Failures.insert(std::ranges::upper_bound(m_Failures, failure.m_Overlap, {}, &SFailure::m_Overlap),
                      std::move(failure));
    if (m_Failures.size() > m_nMost) {
        m_Failures.pop_back();
    }
}

const SFailure& CFailures::Draw(CRandom& random) const {
    const double share = random.Share() * random.Share();
    return m_Failures[static_cast<size_t>(share * static_cast<double>(m_Failures.size()))];
}

}  // namespace nestrix
