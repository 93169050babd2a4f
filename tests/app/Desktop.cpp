#include "tests/app/Desktop.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

#include <span>
#include <stdexcept>

namespace nestrix::support {

CWindowManager::CWindowManager() {
    const std::string ready = m_Folder.PathOf("ready");
    m_pProcess = std::make_unique<CProcess>(
        std::vector<std::string>{"openbox", "--sm-disable", "--startup", "touch " + ready},
        CProcess::SSettings{});
    if (!Await([&ready] { return std::filesystem::exists(ready); })) {
        throw std::runtime_error("the window manager did not start");
    }
    // The first key makes the server announce the keyboard's map, and the window manager take hold of its
    // shortcuts anew: one that is pressed meanwhile would be lost.
    PressKeys({"Shift_L"});
}

namespace {

using ScreenPointer = std::unique_ptr<Display, decltype(&XCloseDisplay)>;

ScreenPointer OpenScreen() {
    ScreenPointer pDisplay(XOpenDisplay(nullptr), XCloseDisplay);
    if (pDisplay == nullptr) {
        throw std::runtime_error("the screen is gone");
    }
    return pDisplay;
}

std::string Xdotool(std::vector<std::string> arguments) {
    arguments.insert(arguments.begin(), "xdotool");
    return OutputOf(arguments);
}

}  // namespace

void PressKeys(const std::vector<std::string>& keys) {
    for (const std::string& key : keys) {
        Xdotool({"key", key});
    }
}

void TypeText(const std::string& text) {
    Xdotool({"type", "--delay", "4", text});
}

void ParkPointer() {
    Xdotool({"mousemove", "100000", "100000"});
}

void Click(const wxPoint& position, int nButton) {
    Xdotool({"mousemove", std::to_string(position.x), std::to_string(position.y), "click",
             std::to_string(nButton)});
}

void Drag(const wxPoint& from, const wxPoint& to) {
    Xdotool({"mousemove", std::to_string(from.x), std::to_string(from.y), "mousedown", "1", "mousemove",
             std::to_string(to.x), std::to_string(to.y), "mouseup", "1"});
}

bool IsWindowOpen(const std::string& title) {
    return !Xdotool({"search", "--onlyvisible", "--name", "^" + title + "$"}).empty();
}

bool AwaitWindow(const std::string& title) {
    return Await([&title] { return IsWindowOpen(title); });
}

bool AwaitFocus(const std::string& title) {
    return Await([&title] { return Xdotool({"getactivewindow", "getwindowname"}) == title + "\n"; });
}

int CountWindows() {
    const ScreenPointer pDisplay = OpenScreen();
    Window root = 0;
    Window parent = 0;
    Window* pWindows = nullptr;
    unsigned int nWindows = 0;
    XQueryTree(pDisplay.get(), DefaultRootWindow(pDisplay.get()), &root, &parent, &pWindows, &nWindows);
    int nVisible = 0;
    for (const Window window : std::span(pWindows, nWindows)) {
        XWindowAttributes attributes = {};
        // A window may vanish while it is asked.
        const bool bKnown = XGetWindowAttributes(pDisplay.get(), window, &attributes) != 0;
        nVisible += bKnown && attributes.map_state == IsViewable && attributes.c_class == InputOutput ? 1 : 0;
    }
    XFree(pWindows);
    return nVisible;
}

CScreenshot::CScreenshot() {
    const ScreenPointer pScreen = OpenScreen();
    Display* pDisplay = pScreen.get();
    const auto nWidth = static_cast<unsigned int>(DisplayWidth(pDisplay, 0));
    const auto nHeight = static_cast<unsigned int>(DisplayHeight(pDisplay, 0));
    m_pImage.reset(
        XGetImage(pDisplay, DefaultRootWindow(pDisplay), 0, 0, nWidth, nHeight, AllPlanes, ZPixmap));
}

void CScreenshot::SDestroyImage::operator()(_XImage* pImage) const {
    XDestroyImage(pImage);
}

SColour CScreenshot::At(const wxPoint& position) const {
    const unsigned long nPixel = XGetPixel(m_pImage.get(), position.x, position.y);
    const auto channel = [nPixel](int nShift) { return static_cast<std::uint8_t>(nPixel >> nShift & 0xFFU); };
    return {channel(16), channel(8), channel(0)};
}

int CScreenshot::Count(SColour colour, const wxRect& area) const {
    int nCount = 0;
    for (int nY = area.GetTop(); nY <= area.GetBottom(); ++nY) {
        for (int nX = area.GetLeft(); nX <= area.GetRight(); ++nX) {
            nCount += At({nX, nY}) == colour ? 1 : 0;
        }
    }
    return nCount;
}

bool CScreenshot::Differs(const CScreenshot& other, const wxRect& area) const {
    for (int nY = area.GetTop(); nY <= area.GetBottom(); ++nY) {
        for (int nX = area.GetLeft(); nX <= area.GetRight(); ++nX) {
            if (!(At({nX, nY}) == other.At({nX, nY}))) {
                return true;
            }
        }
    }
    return false;
}

}  // namespace nestrix::support
