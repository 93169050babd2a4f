#pragma once

#include <atomic>

namespace nestrix {

/// A scalar that one thread writes while another reads it. Reads and writes look like those of a plain T and
/// cost the same, but are atomic: a reader sees some whole value that was written, never a torn one. The
/// order is relaxed, so nothing else is published with the value.
///
/// These are the scalars that cross between the search's thread and the window's, and the reason that
/// neither ever waits for the other: the requests to stop, the mutation probability, the statistics.
template <class T>
class CRelaxed {
public:
    constexpr CRelaxed(T value = T()) : m_Value(value) {}
    CRelaxed(const CRelaxed&) = delete;
    CRelaxed& operator=(const CRelaxed&) = delete;

    operator T() const { return m_Value.load(std::memory_order_relaxed); }

    T operator=(T value) {
        m_Value.store(value, std::memory_order_relaxed);
        return value;
    }

private:
    std::atomic<T> m_Value;

    static_assert(std::atomic<T>::is_always_lock_free);
    static_assert(sizeof(std::atomic<T>) == sizeof(T));
};

/// Whether there is a request, and it has been made.
[[nodiscard]] inline bool IsMade(const CRelaxed<bool>* pRequest) {
    return pRequest != nullptr && *pRequest;
}

}  // namespace nestrix
