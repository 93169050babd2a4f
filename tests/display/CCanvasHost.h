#pragma once

#include <wx/frame.h>
#include <wx/glcanvas.h>
#include <wx/panel.h>

#include "tests/display/CPicture.h"

namespace nestrix::support {

/// A window on the screen to put a canvas into, and to see what is painted on it.
class CCanvasHost {
public:
    /// Shows an empty window, large enough for any canvas of the program.
    CCanvasHost();
    ~CCanvasHost();
    CCanvasHost(const CCanvasHost&) = delete;
    CCanvasHost& operator=(const CCanvasHost&) = delete;

    [[nodiscard]] wxWindow* Parent() const { return m_pPanel; }

    /// Asks for a paint, waits for it and reads the pixels.
    [[nodiscard]] static CPicture Paint(wxGLCanvas& canvas);

    /// Waits for the paint that something else has asked for. Fails the test when there is none.
    [[nodiscard]] static CPicture AwaitPaint(wxGLCanvas& canvas);

    /// Whether the canvas is painted although nothing asked for it. Looks for a moment only.
    [[nodiscard]] static bool IsRepainted(wxGLCanvas& canvas);

private:
    wxFrame* m_pFrame;
    wxPanel* m_pPanel;
};

}  // namespace nestrix::support
