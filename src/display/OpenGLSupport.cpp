#include "display/OpenGLSupport.h"

#include <wx/glcanvas.h>
#include <wx/utils.h>

#include <array>
#include <memory>

#include "display/CGLSurface.h"

// After the toolkit, whose names these would redefine.
#include <GL/glx.h>

namespace nestrix {

namespace {

bool g_bRefused = false;

int NoteRefusal(Display*, XErrorEvent*) {
    g_bRefused = true;
    return 0;
}

/// Tries. A server that makes no contexts for the program says so in an error that would end it.
bool MakesContexts(Display* pScreen) {
    std::array attributes{GLX_RGBA, GLX_DOUBLEBUFFER, 0};
    const std::unique_ptr<XVisualInfo, decltype(&XFree)> pVisual(
        glXChooseVisual(pScreen, DefaultScreen(pScreen), attributes.data()), XFree);
    if (pVisual == nullptr) {
        return false;
    }
    const auto previous = XSetErrorHandler(NoteRefusal);
    const GLXContext context = glXCreateContext(pScreen, pVisual.get(), nullptr, True);
    XSync(pScreen, False);
    XSetErrorHandler(previous);
    if (context == nullptr || g_bRefused) {
        return false;
    }
    glXDestroyContext(pScreen, context);
    return true;
}

bool AskScreen() {
    const wxDisplayInfo info = wxGetDisplayInfo();
    auto* pScreen = static_cast<Display*>(info.dpy);
    int nError = 0;
    int nEvent = 0;
    // The toolkit's own question comes last: it asserts where there is no GLX at all, and it is content with
    // one that makes no contexts.
    return info.type == wxDisplayX11 && glXQueryExtension(pScreen, &nError, &nEvent) != 0 &&
           MakesContexts(pScreen) && wxGLCanvas::IsDisplaySupported(g_OpenGLAttribList);
}

}  // namespace

bool IsOpenGLAvailable() {
    static const bool s_bAvailable = AskScreen();
    return s_bAvailable;
}

}  // namespace nestrix
