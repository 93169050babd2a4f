#include "nest/CStepCounter.h"

#include <algorithm>
#include <utility>

namespace nestrix {

CStepLimit::CStepLimit(size_t nWorkers, uint64_t nMost, std::function<bool()> isToEnd)
    : m_IsToEnd(std::move(isToEnd)), m_nLimit(nMost), m_Begun(nWorkers) {}

uint64_t CStepLimit::BeginQuantum(size_t nWorker, uint64_t nSteps) {
    std::unique_lock lock(m_Mutex);
    m_Begun[nWorker] = nSteps;
    if (!m_bEnding && m_IsToEnd()) {
        m_bEnding = true;
        // Every worker comes by here before it begins another quantum, and then sees the end.
        m_nLimit = std::min(m_nLimit, *std::max_element(m_Begun.begin(), m_Begun.end()) + QUANTUM);
    }
    m_Followed.notify_all();
    m_Followed.wait(lock, [&] {
        return m_bEnding || nSteps <= *std::min_element(m_Begun.begin(), m_Begun.end()) + LEAD;
    });
    return m_nLimit;
}

uint64_t CStepLimit::EndAfter(uint64_t nSteps) {
    const std::lock_guard lock(m_Mutex);
    const uint64_t nAhead = Workers() > 1 ? LEAD + QUANTUM : 0;
    m_nLimit = std::min(m_nLimit, nSteps + nAhead);
    return m_nLimit;
}

void CStepLimit::Abort() {
    const std::lock_guard lock(m_Mutex);
    m_bEnding = true;
    m_nLimit = 0;
    m_Followed.notify_all();
}

uint64_t CStepLimit::Steps() const {
    const std::lock_guard lock(m_Mutex);
    return m_nLimit;
}

}  // namespace nestrix
