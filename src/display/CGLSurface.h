#pragma once

#include <wx/debug.h>
#include <wx/glcanvas.h>

#include <memory>

/// The attributes of every canvas: double-buffered RGB without a depth buffer.
extern int g_OpenGLAttribList[11];

namespace nestrix {

/// One canvas's own OpenGL context and its measure in physical pixels.
///
/// A canvas can be drawn on only while it has a window on the screen. Whoever sets a canvas up earlier
/// finds MakeCurrent false, and sets it up at the first paint instead.
///
/// On a screen without OpenGL a canvas is a window like any other, on which nothing is ever drawn.
class CGLSurface {
public:
    /// Has to live while a canvas is constructed: the toolkit takes a screen without OpenGL for a fault of
    /// the program's, and would stop it with an assertion.
    class CLeniency {
    public:
        CLeniency();
        ~CLeniency();
        CLeniency(const CLeniency&) = delete;
        CLeniency& operator=(const CLeniency&) = delete;

    private:
        wxAssertHandler_t m_Previous;
    };

    /// @param canvas the canvas that holds this surface, already constructed.
    /// @param pParent, size what the canvas was constructed with.
    CGLSurface(wxGLCanvas& canvas, wxWindow* pParent, const wxSize& size);

    /// Makes the following OpenGL calls go to this canvas. False while it is not on the screen, and for ever
    /// where the screen has no OpenGL: then there is nothing to draw on.
    [[nodiscard]] bool MakeCurrent();

    /// Maps the whole client area to world x 0 .. fWidth and y 0 .. fHeight, and leaves the model matrix
    /// at identity. The canvas must be current.
    void SetView(float fWidth, float fHeight);

    /// Physical pixels per logical one: 2 on a screen of high density. Points, lines and fonts grow by it.
    [[nodiscard]] float Scale() const;

    /// glPointSize and glLineWidth in logical pixels.
    void SetPointSize(float fSize) const;
    void SetLineWidth(float fWidth) const;

private:
    wxGLCanvas& m_Canvas;
    std::unique_ptr<wxGLContext> m_pContext;  ///< null on a screen without OpenGL
};

/// Flat drawing on a white ground: what every canvas of the program starts from.
void SetUpFlatDrawing();

}  // namespace nestrix
