#pragma once

#include <condition_variable>
#include <functional>
#include <mutex>
#include <thread>

namespace nestrix {

/// Keeps a file up to date while there is ever more to write: on a thread of its own, at most once a second,
/// and only what was offered last.
class CUpdater {
public:
    CUpdater() : m_Thread([this] { Run(); }) {}

    /// Writes what was offered last, if that has not been written yet.
    ~CUpdater();
    CUpdater(const CUpdater&) = delete;
    CUpdater& operator=(const CUpdater&) = delete;

    /// There is something newer. Any thread.
    /// @param write is called later, on the thread of this object, or never.
    void Offer(std::function<void()> write);

private:
    void Run();

    std::mutex m_Mutex;  ///< guards all below but the thread
    std::condition_variable m_Wake;
    std::function<void()> m_Write;  ///< what was offered last; empty once it is written
    bool m_bOver = false;
    std::thread m_Thread;
};

}  // namespace nestrix
