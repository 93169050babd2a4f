#pragma once

/// The application's face: the application, its window, the scrolled form, the worker thread.

#include <wx/app.h>

#include "app/CNestrixFrame.h"
#include "app/CNestrixScrolledWindow.h"
#include "app/CPolyThread.h"

class CNestrixApp : public wxApp {
public:
    /// Shows the window, then fills it: deliberately in this order, since the canvases can be set up only
    /// once they are on the screen.
    bool OnInit() override;
};

wxDECLARE_APP(CNestrixApp);
