#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <optional>

namespace nestrix {

/// What was true of a search when one of its generations ended.
struct SGenerationStatistics {
    int m_nGeneration = 0;
    float m_fAverageFitness = 0.0F;
    float m_fBestFitness = 0.0F;
};

/// The statistics of the generations that have been reported and not yet been looked at, the oldest first.
///
/// A ring between two threads without a lock: Push on the search's, Take and Clear on the one that hears its
/// reports. It has room for twice as many as the search lets wait.
class CStatisticsQueue {
public:
    /// Appends; does nothing while the queue is full.
    void Push(const SGenerationStatistics& statistics) {
        const size_t nEnd = m_nEnd.load(std::memory_order_relaxed);
        if (nEnd - m_nBegin.load(std::memory_order_acquire) < CAPACITY) {
            m_Slots[nEnd % CAPACITY] = statistics;
            m_nEnd.store(nEnd + 1, std::memory_order_release);
        }
    }

    /// Takes the oldest out if it is this generation's; nothing otherwise.
    [[nodiscard]] std::optional<SGenerationStatistics> Take(int nGeneration) {
        const size_t nBegin = m_nBegin.load(std::memory_order_relaxed);
        if (nBegin == m_nEnd.load(std::memory_order_acquire)) {
            return std::nullopt;
        }
        const SGenerationStatistics oldest = m_Slots[nBegin % CAPACITY];
        if (oldest.m_nGeneration != nGeneration) {
            return std::nullopt;
        }
        m_nBegin.store(nBegin + 1, std::memory_order_release);
        return oldest;
    }

    void Clear() { m_nBegin.store(m_nEnd.load(std::memory_order_acquire), std::memory_order_release); }

private:
    static constexpr size_t CAPACITY = 128;  // a power of two: the counters may overflow

    std::array<SGenerationStatistics, CAPACITY> m_Slots;
    std::atomic<size_t> m_nBegin = 0;  ///< how many have been taken, ever
    std::atomic<size_t> m_nEnd = 0;    ///< how many have been pushed, ever
};

}  // namespace nestrix
