#include "mpi/CMailbox.h"

#include <utility>

namespace nestrix {

void CMailbox::BetterPacking(const SFreePacking& packing, const SPackProgress& progress) {
    {
        const std::lock_guard lock(m_Mutex);
        m_Best = packing;
    }
    m_Sink.BetterPacking(packing, progress);
}

std::optional<SFreePacking> CMailbox::PackingOfOthers() {
    const std::lock_guard lock(m_Mutex);
    std::optional<SFreePacking> packing = std::exchange(m_OfOthers, std::nullopt);
    // The search may have been quicker than the message.
    return packing && m_Best && m_Best->m_nHeight <= packing->m_nHeight ? std::nullopt : packing;
}

std::optional<SFreePacking> CMailbox::BestBelow(int64_t nHeight) const {
    const std::lock_guard lock(m_Mutex);
    return m_Best && m_Best->m_nHeight < nHeight ? m_Best : std::nullopt;
}

void CMailbox::Put(SFreePacking packing) {
    const std::lock_guard lock(m_Mutex);
    m_OfOthers = std::move(packing);
}

}  // namespace nestrix
