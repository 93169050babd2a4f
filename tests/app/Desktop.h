#pragma once

#include <wx/gdicmn.h>

#include <memory>
#include <string>
#include <vector>

#include "tests/app/CProcess.h"
#include "tests/display/CPicture.h"
#include "tests/support/CTemporaryFolder.h"

struct _XImage;

namespace nestrix::support {

/// A window manager on the test's screen.
class CWindowManager {
public:
    /// Returns once it manages windows.
    CWindowManager();

private:
    CTemporaryFolder m_Folder;
    std::unique_ptr<CProcess> m_pProcess;
};

/// Real keys and clicks, for whichever window has the focus or lies under the pointer.
void PressKeys(const std::vector<std::string>& keys);
void TypeText(const std::string& text);
/// Leaves the pointer in a corner, where it calls up no tooltip.
void ParkPointer();
void Click(const wxPoint& position, int nButton = 1);
void Drag(const wxPoint& from, const wxPoint& to);

/// Whether a window of this title is on the screen.
[[nodiscard]] bool IsWindowOpen(const std::string& title);
[[nodiscard]] bool AwaitWindow(const std::string& title);

/// Waits until the window of this title is the one that keys go to.
[[nodiscard]] bool AwaitFocus(const std::string& title);

/// How many windows are on the screen: with a menu, one more.
[[nodiscard]] int CountWindows();

/// What is on the screen now.
class CScreenshot {
public:
    CScreenshot();

    [[nodiscard]] SColour At(const wxPoint& position) const;
    [[nodiscard]] int Count(SColour colour, const wxRect& area) const;
    /// Whether the area looks different in the other picture.
    [[nodiscard]] bool Differs(const CScreenshot& other, const wxRect& area) const;

private:
    struct SDestroyImage {
        void operator()(_XImage* pImage) const;
    };
    std::unique_ptr<_XImage, SDestroyImage> m_pImage;
};

}  // namespace nestrix::support
