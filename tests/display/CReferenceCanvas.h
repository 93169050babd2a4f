#pragma once

#include <FTGL/ftgl.h>
#include <wx/glcanvas.h>

#include <string>
#include <vector>

#include "geom/Vector.h"
#include "tests/display/CPicture.h"

namespace nestrix::support {

/// A canvas of the tests' own with a context and a font of its own, on which a test draws with the plainest
/// of means what it expects to see on one of the program's. Positions are in the view's units, sizes in
/// logical pixels.
class CReferenceCanvas {
public:
    /// @param size of the canvas in logical pixels.
    /// @param nFaceSize of the font, likewise.
    CReferenceCanvas(wxWindow* pParent, const wxSize& size, unsigned int nFaceSize);

    /// Begins a white picture of the view from (0, 0) to (fWidth, fHeight).
    void Begin(float fWidth, float fHeight, bool bRoundDots);

    void Segment(SColour colour, float fX1, float fY1, float fX2, float fY2, float fWidth = 1.0F);
    void Loop(SColour colour, const std::vector<mgVector3>& corners);
    void Curve(SColour colour, const std::vector<mgVector3>& points);
    void Dot(SColour colour, float fX, float fY, float fSize);
    /// With its baseline's left end at the position.
    void Text(SColour colour, float fX, float fY, const std::string& text);

    /// What has been drawn since Begin.
    [[nodiscard]] CPicture Picture() const;

private:
    [[nodiscard]] float Scale() const;

    wxGLCanvas* m_pCanvas;
    wxGLContext m_Context;
    FTGLPixmapFont m_Font;
};

}  // namespace nestrix::support
