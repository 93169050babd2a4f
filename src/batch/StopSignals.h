#pragma once

#include <signal.h>

#include "CRelaxed.h"

/// While it lives, SIGINT and SIGTERM ask the search to stop instead of ending the program. One at a time.
///
/// The search clears its flag when it begins, so a signal that comes before that would be lost. It is
/// remembered here: whoever hears of the search's generations asks WasRequested and sets the flag again.
class CStopSignals {
public:
    /// @param stopFlag set by either signal; it must outlive this object.
    explicit CStopSignals(CRelaxed<bool>& stopFlag);
    ~CStopSignals();
    CStopSignals(const CStopSignals&) = delete;
    CStopSignals& operator=(const CStopSignals&) = delete;

    /// Whether one of the signals has come since this object was made.
    [[nodiscard]] bool WasRequested() const;

private:
    struct sigaction m_PreviousInterrupt = {};
    struct sigaction m_PreviousTerminate = {};
};
