#include "tests/display/EventPump.h"

#include <wx/app.h>
#include <wx/evtloop.h>

#include <thread>

namespace nestrix::support {

void PumpPending() {
    wxEventLoopBase* pLoop = wxEventLoopBase::GetActive();
    wxTheApp->ProcessPendingEvents();
    while (pLoop->Pending()) {
        pLoop->Dispatch();
    }
    wxTheApp->ProcessIdle();
}

bool PumpUntil(const std::function<bool()>& condition, std::chrono::milliseconds patience) {
    const auto end = std::chrono::steady_clock::now() + patience;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        PumpPending();
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    }
    return true;
}

}  // namespace nestrix::support
