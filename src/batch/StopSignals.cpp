#include "StopSignals.h"

#include <atomic>

namespace {

// All that the handler touches: lock-free atomics, the one thing that it may share with the program.
std::atomic<bool> g_StopRequested = false;
std::atomic<CRelaxed<bool>*> g_StopFlag = nullptr;
static_assert(std::atomic<CRelaxed<bool>*>::is_always_lock_free);

}  // namespace

extern "C" {
static void RequestStop(int /*nSignal*/) {
    g_StopRequested = true;
    if (CRelaxed<bool>* const pFlag = g_StopFlag) {
        *pFlag = true;
    }
}
}

CStopSignals::CStopSignals(CRelaxed<bool>& stopFlag) {
    g_StopRequested = false;
    g_StopFlag = &stopFlag;
    struct sigaction action = {};
    action.sa_handler = RequestStop;
    // Without this, a signal during a write would cut the output short.
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    sigaction(SIGINT, &action, &m_PreviousInterrupt);
    sigaction(SIGTERM, &action, &m_PreviousTerminate);
}

CStopSignals::~CStopSignals() {
    sigaction(SIGINT, &m_PreviousInterrupt, nullptr);
    sigaction(SIGTERM, &m_PreviousTerminate, nullptr);
    g_StopFlag = nullptr;
}

bool CStopSignals::WasRequested() const {
    return g_StopRequested;
}
