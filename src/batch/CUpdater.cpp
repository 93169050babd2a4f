#include "batch/CUpdater.h"

#include <chrono>
#include <utility>

namespace nestrix {

namespace {

constexpr std::chrono::seconds BETWEEN_WRITINGS{1};

}  // namespace

CUpdater::~CUpdater() {
    {
        const std::lock_guard lock(m_Mutex);
        m_bOver = true;
        m_Wake.notify_one();
    }
    m_Thread.join();
}

void CUpdater::Offer(std::function<void()> write) {
    const std::lock_guard lock(m_Mutex);
    m_Write = std::move(write);
    m_Wake.notify_one();
}

void CUpdater::Run() {
    std::unique_lock lock(m_Mutex);
    while (true) {
        m_Wake.wait(lock, [this] { return m_bOver || m_Write; });
        if (const std::function<void()> write = std::exchange(m_Write, nullptr)) {
            lock.unlock();
            write();
            lock.lock();
        }
        if (m_bOver && !m_Write) {
            return;
        }
        m_Wake.wait_for(lock, BETWEEN_WRITINGS, [this] { return m_bOver; });
    }
}

}  // namespace nestrix
