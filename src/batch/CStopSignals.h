#pragma once

#include <signal.h>

#include <array>

#include "base/CRelaxed.h"

namespace nestrix {

/// While it lives, SIGINT, SIGTERM and SIGHUP make a request instead of ending the program; but one that was
/// ignored when the program was started, as by nohup, stays ignored. One at a time.
class CStopSignals {
public:
    /// @param request set by each of the signals, and by nobody else; it must outlive this object.
    explicit CStopSignals(CRelaxed<bool>& request);
    ~CStopSignals();
    CStopSignals(const CStopSignals&) = delete;
    CStopSignals& operator=(const CStopSignals&) = delete;

private:
    static constexpr std::array<int, 3> SIGNALS{SIGINT, SIGTERM, SIGHUP};

    std::array<struct sigaction, SIGNALS.size()> m_Previous{};
};

}  // namespace nestrix
