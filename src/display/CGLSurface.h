#pragma once

#include <wx/glcanvas.h>

/// The attributes of every canvas: double-buffered RGB without a depth buffer.
extern int g_OpenGLAttribList[11];

/// One canvas's own OpenGL context and its measure in physical pixels.
///
/// A canvas can be drawn on only while it has a window on the screen. Whoever sets a canvas up earlier
/// finds MakeCurrent false, and sets it up at the first paint instead.
class CGLSurface {
public:
    /// @param canvas the canvas that holds this surface, already constructed.
    explicit CGLSurface(wxGLCanvas& canvas);

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
    wxGLContext m_Context;
};

/// Flat drawing on a white ground: what every canvas of the program starts from.
void SetUpFlatDrawing();
