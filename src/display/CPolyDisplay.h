#pragma once

#include <FTGL/ftgl.h>
#include <wx/menu.h>

#include <memory>
#include <vector>

#include "display/CGLSurface.h"
#include "display/CPlotter.h"
#include "display/RenderOptions.h"
#include "geom/Geom.h"

namespace nestrix {

/// Where the strip's origin lies on the canvas, in world units: beside and above the room for the labels.
inline constexpr mgVector3 CANVAS_ORIGIN{40.0F, 20.0F, 0.0F};

}  // namespace nestrix

/// One polygon on the canvas.
struct SPolyItem {
    CPolygon m_Polygon;  ///< its reference point is where it is drawn: strip position plus the strip's origin
    int m_nSeqNumber = 0;  ///< its place in drop order, from 0
};

/// The view of a packing: every polygon where it came to rest, the strip's axes, a line at the packing's
/// height with a caption, and overlays of the polygons' profiles that a right-click menu switches.
///
/// World units are the strip's units, with the strip's origin at CANVAS_ORIGIN. The
/// view is measured once, at set-up, and deliberately never follows a resize.
///
/// Order of use: put the canvas in its place, Initialize once; then, for each packing, Clear, AddPolygon
/// for each polygon in drop order, Refresh. The window's thread only.
class CPolyDisplay : public wxGLCanvas {
public:
    explicit CPolyDisplay(wxWindow* parent);
    ~CPolyDisplay() override;

    /// Sets OpenGL, the view, the font and the render menu up. What needs the canvas on the screen waits for
    /// the first paint if it is not there yet.
    /// @param fStripWidth, fStripHeight what the axes span; the view adds room for their labels.
    void Initialize(float fStripWidth, float fStripHeight);

    /// Adds a placed polygon, at its reference point in the strip. Does not repaint.
    void AddPolygon(const CPolygon& polygon);

    /// Takes all polygons away and puts the height line on the floor. Does not repaint; markers stay.
    void Clear();

    void OnPaint(wxPaintEvent& event);
    void OnEraseBackground(wxEraseEvent& event);
    void OnRightDown(wxMouseEvent& event);
    void OnMenuDrawBoundingBox(wxCommandEvent& event);
    void OnMenuDrawFrontPoints(wxCommandEvent& event);
    void OnMenuDrawBackPoints(wxCommandEvent& event);
    void OnMenuDrawReferencePoints(wxCommandEvent& event);
    void OnMenuDrawSeqNumber(wxCommandEvent& event);
    void OnMenuDrawFrontLines(wxCommandEvent& event);
    void OnMenuDrawBackLines(wxCommandEvent& event);

    std::vector<SPolyItem> m_PolyItems;  ///< drawn in this order
    std::vector<mgVector3> m_Markers;    ///< drawn as large dots above the polygons; placements may append
    float m_fViewWidth = 0.0F;           ///< world units across the canvas
    float m_fViewHeight = 0.0F;          ///< world units up the canvas
    float m_fStripWidth = 0.0F;
    float m_fStripHeight = 0.0F;
    float m_fHeight = 0.0F;  ///< the highest top of all polygons, in the strip's coordinates
    FTGLPixmapFont m_Font;
    wxMenu* m_pMenu = nullptr;  ///< the render menu; null when the resources have none

private:
    CPolyDisplay(wxWindow* pParent, const nestrix::CGLSurface::CLeniency&);

    void SetUpView();
    void LoadRenderMenu();
    void CheckMenuItem(const char* pName, bool bCheck);
    void SwitchOption(nestrix::ERenderOption option, const char* pName, bool bOn);

    void DrawPolygon(const SPolyItem& item);
    void DrawProfile(const CPolygon& polygon);
    void DrawLines(const CPolygon& polygon, const std::vector<CLine>& lines);
    void DrawPoints(const CPolygon& polygon, const std::vector<CPoint>& points);
    void DrawBoundingBox(const CPolygon& polygon);
    void DrawMarkers();
    void DrawAxes();
    void DrawAxisX();
    void DrawAxisY();
    void DrawHeight();

    nestrix::CGLSurface m_Surface;
    bool m_bSetUpPending = false;  ///< Initialize found the canvas off the screen
    // The toolkit pops up no menu that belongs to a menu bar, so the two are parted and kept here.
    std::unique_ptr<wxMenuBar> m_pRenderMenuBar;
    std::unique_ptr<wxMenu> m_pRenderMenu;

    wxDECLARE_EVENT_TABLE();
};
