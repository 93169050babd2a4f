#pragma once

#include <signal.h>

#include <array>

#include "base/CRelaxed.h"

namespace nestrix {

/// While it lives, the first of SIGINT, SIGTERM and SIGHUP makes a request instead of ending the program, and
/// a second one ends it at once; but one that was ignored when the program was started, as by nohup, stays
/// ignored. One object at a time.
class CStopSignals {
public:
    /// @param request set by each of the signals, and by nobody else; it must outlive this object.
    explicit CStopSignals(CRelaxed<bool>& request);
    ~CStopSignals();
    CStopSignals(const CStopSignals&) = delete;
    CStopSignals& operator=(const CStopSignals&) = delete;

    /// Which signal made the request; 0 before there is one.
    [[nodiscard]] static int Received();

private:
    static constexpr std::array<int, 3> SIGNALS{SIGINT, SIGTERM, SIGHUP};

    std::array<struct sigaction, SIGNALS.size()> m_Previous{};
};

}  // namespace nestrix
