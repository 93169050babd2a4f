#include "tests/display/CCanvasHost.h"

#include <gtest/gtest.h>
#include <wx/app.h>

#include <optional>

#include "tests/display/EventPump.h"

namespace nestrix::support {

namespace {

/// Reads a canvas's pixels at each of its paints while it lives, when its OpenGL context is the current one.
class CPaintWatcher {
public:
    explicit CPaintWatcher(wxGLCanvas& canvas) : m_Canvas(canvas) {
        m_Canvas.Bind(wxEVT_PAINT, &CPaintWatcher::OnPaint, this);
    }
    ~CPaintWatcher() { m_Canvas.Unbind(wxEVT_PAINT, &CPaintWatcher::OnPaint, this); }
    CPaintWatcher(const CPaintWatcher&) = delete;
    CPaintWatcher& operator=(const CPaintWatcher&) = delete;

    [[nodiscard]] const std::optional<CPicture>& Picture() const { return m_Picture; }

private:
    void OnPaint(wxPaintEvent& event) {
        event.Skip(m_bPainting);
        if (m_bPainting) {
            return;
        }
        m_bPainting = true;
        m_Canvas.GetEventHandler()->ProcessEvent(event);
        m_bPainting = false;
        event.Skip(false);
        const wxSize size = m_Canvas.GetClientSize() * m_Canvas.GetContentScaleFactor();
        m_Picture.emplace(size.x, size.y);
    }

    wxGLCanvas& m_Canvas;
    bool m_bPainting = false;
    std::optional<CPicture> m_Picture;
};

}  // namespace

CCanvasHost::CCanvasHost()
    : m_pFrame(new wxFrame(nullptr, wxID_ANY, "Host")), m_pPanel(new wxPanel(m_pFrame)) {
    m_pFrame->SetClientSize(800, 760);
    m_pFrame->Show();
    EXPECT_TRUE(PumpUntil([this] { return m_pPanel->IsShownOnScreen() && m_pPanel->GetSize().x >= 800; }));
}

CCanvasHost::~CCanvasHost() {
    m_pFrame->Destroy();
    wxTheApp->ProcessIdle();
}

CPicture CCanvasHost::Paint(wxGLCanvas& canvas) {
    canvas.Refresh();
    return AwaitPaint(canvas);
}

CPicture CCanvasHost::AwaitPaint(wxGLCanvas& canvas) {
    const CPaintWatcher watcher(canvas);
    if (!PumpUntil([&watcher] { return watcher.Picture().has_value(); })) {
        ADD_FAILURE() << "the canvas was not painted";
        return {0, 0};
    }
    return *watcher.Picture();
}

bool CCanvasHost::IsRepainted(wxGLCanvas& canvas) {
    const CPaintWatcher watcher(canvas);
    return PumpUntil([&watcher] { return watcher.Picture().has_value(); }, std::chrono::milliseconds(150));
}

}  // namespace nestrix::support
