#include "batch/CStopSignals.h"

#include <time.h>

#include <atomic>
#include <cstdint>

namespace nestrix {

namespace {

// All that the handler touches: lock-free atomics, the one thing that it may share with the program.
std::atomic<CRelaxed<bool>*> g_Request = nullptr;
std::atomic<int> g_nReceived = 0;
std::atomic<int64_t> g_nWhen = 0;  ///< in milliseconds; 0 before there is one
static_assert(std::atomic<CRelaxed<bool>*>::is_always_lock_free && std::atomic<int64_t>::is_always_lock_free);

/// What comes so soon is the same event told twice: a terminal that is closed, and the shell in it, each send
/// SIGHUP.
constexpr int64_t SAME_EVENT = 100;

int64_t Milliseconds() {
    timespec now = {};
    clock_gettime(CLOCK_MONOTONIC, &now);
    return int64_t{now.tv_sec} * 1000 + now.tv_nsec / 1'000'000;
}

}  // namespace

extern "C" {
static void MakeRequest(int nSignal) {
    CRelaxed<bool>* const pRequest = g_Request;
    int64_t nFirst = 0;
    if (g_nWhen.compare_exchange_strong(nFirst, Milliseconds())) {
        g_nReceived = nSignal;
        if (pRequest != nullptr) {
            *pRequest = true;
        }
    } else if (Milliseconds() - nFirst > SAME_EVENT) {
        signal(nSignal, SIG_DFL);
        raise(nSignal);
    }
}
}

int CStopSignals::Received() {
    return g_nReceived;
}

CStopSignals::CStopSignals(CRelaxed<bool>& request) {
    g_nReceived = 0;
    g_nWhen = 0;
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
