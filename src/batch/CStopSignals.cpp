#include "batch/CStopSignals.h"

#include <atomic>

namespace nestrix {

namespace {

// All that the handler touches: lock-free atomics, the one thing that it may share with the program.
std::atomic<CRelaxed<bool>*> g_Request = nullptr;
static_assert(std::atomic<CRelaxed<bool>*>::is_always_lock_free);

}  // namespace

extern "C" {
static void MakeRequest(int /*nSignal*/) {
    if (CRelaxed<bool>* const pRequest = g_Request) {
        *pRequest = true;
    }
}
}

CStopSignals::CStopSignals(CRelaxed<bool>& request) {
    g_Request = &request;
    struct sigaction action = {};
    action.sa_handler = MakeRequest;
    // Without this, a signal during a write would cut the output short.
    action.sa_flags = SA_RESTART;
    sigemptyset(&action.sa_mask);
    for (size_t i = 0; i < SIGNALS.size(); ++i) {
        sigaction(SIGNALS[i], nullptr, &m_Previous[i]);
        if (m_Previous[i].sa_handler != SIG_IGN) {
            sigaction(SIGNALS[i], &action, nullptr);
        }
    }
}

CStopSignals::~CStopSignals() {
    for (size_t i = 0; i < SIGNALS.size(); ++i) {
        sigaction(SIGNALS[i], &m_Previous[i], nullptr);
    }
    g_Request = nullptr;
}

}  // namespace nestrix
