#pragma once

#include <wx/scrolwin.h>

/// Hears of scrolling.
class CScrollCallback {
public:
    virtual void OnScrolled() = 0;

protected:
    ~CScrollCallback() = default;
};

/// The window that carries the form, and scrolls it where the screen is too small.
class CNestrixScrolledWindow : public wxScrolledWindow {
public:
    using wxScrolledWindow::wxScrolledWindow;
    ~CNestrixScrolledWindow() override;

    CScrollCallback* m_pScrollCallback = nullptr;  ///< a hook that nothing calls yet, deliberately

private:
    wxDECLARE_EVENT_TABLE();
};
