#pragma once

#include <string>

#include "display/CPolyDisplay.h"
#include "tests/app/FrameFixture.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix::support {

/// The window, with what a run of its search leaves behind.
class RunFixture : public FrameFixture {
protected:
    [[nodiscard]] CContainer& Container() { return m_pFrame->m_Container; }
    /// Of a plot: one for each generation whose notice was handled.
    [[nodiscard]] size_t PointCount() const { return m_pFrame->m_pBestPlotter->m_Points.size(); }

    /// A whole run, with all that it prints.
    std::string RunToItsEnd() {
        return PrintedBy([this] {
            wxCommandEvent event(wxEVT_BUTTON, XRCID("ID_BTN_RUN_GA"));
            m_pFrame->ProcessWindowEvent(event);
            AwaitEndOfRun();
        });
    }
};

}  // namespace nestrix::support
