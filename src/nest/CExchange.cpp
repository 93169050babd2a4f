#include "nest/CExchange.h"

#include <algorithm>
#include <utility>

namespace nestrix {

std::shared_ptr<const SSolution> CExchange::Meet(size_t nWorker, std::shared_ptr<const SSolution> best) {
    std::unique_lock lock(m_Mutex);
    m_Shown[nWorker] = std::move(best);
    ++m_nArrived;
    if (m_nArrived == m_Shown.size()) {
        m_Best = *std::min_element(m_Shown.begin(), m_Shown.end(),
                                   [](const auto& a, const auto& b) { return a->m_Height < b->m_Height; });
        const std::shared_ptr<const SSolution> other = m_Outside(m_nMeetings + 1);
        if (other && other->m_Height < m_Best->m_Height) {
            m_Best = other;
        }
        m_nArrived = 0;
        ++m_nMeetings;
        m_Met.notify_all();
        return m_Best;
    }
    const uint64_t nMeetings = m_nMeetings;
    m_Met.wait(lock, [&] { return m_nMeetings != nMeetings || m_bLeft; });
    return m_nMeetings != nMeetings ? m_Best : m_Shown[nWorker];
}

void CExchange::Leave() {
    const std::lock_guard lock(m_Mutex);
    m_bLeft = true;
    m_Met.notify_all();
}

}  // namespace nestrix
