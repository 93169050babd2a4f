#pragma once

#include <FTGL/ftgl.h>

#include <vector>

#include "display/CCurveThinner.h"
#include "display/CGLSurface.h"
#include "geom/Geom.h"

/// The graph of one statistic over the generations of a run. The x range is fixed for a run; the y range
/// grows by itself, so that the curve always fills the plot.
///
/// Order of use: put the plotter in its place, Initialize once; then, for each run, Reset, Reshape with the
/// number of generations, AddValue once per generation and Refresh. The window's thread only.
class CPlotter : public wxGLCanvas {
public:
    explicit CPlotter(wxWindow* parent);
    ~CPlotter() override;

    /// Sets OpenGL and the font up, with 150 generations across. What needs the plotter on the screen waits
    /// for the first paint if it is not there yet.
    void Initialize();

    /// Measures the plotter's window anew and spans fMaxX generations across it.
    void Reshape(float fMaxX);

    /// Empties the graph; the y range is 0 .. 50 again.
    void Reset();

    /// Appends a point and widens the y range where needed: the bottom follows the smallest value, the top
    /// leaves a fifth of the spread free whenever the largest value touches it. Values that are not finite
    /// are compared like any other and may become a bound; what has no place then is not drawn. Does not
    /// repaint.
    void AddValue(float fGeneration, float fValue);

    void OnPaint(wxPaintEvent& event);
    void OnEraseBackground(wxEraseEvent& event);

    static float m_LeftMargin;  ///< margins of the plot area in pixels
    static float m_RightMargin;
    static float m_BottomMargin;
    static float m_TopMargin;
    static FTGLPixmapFont m_Font;  ///< shared; lives from before main until the program ends
    static bool m_bFirst;          ///< deliberately read and written by nothing

    std::vector<mgVector3> m_Points;  ///< x = generation, y = value, in the order added
    float m_fMaxValue = 0.0F;         ///< the largest value of this run
    float m_fMinY = 0.0F;             ///< bottom of the y range
    float m_fMaxY = 50.0F;            ///< top of the y range
    float m_fMaxX = 150.0F;           ///< generations across
    float m_fWidth = 0.0F;            ///< client size at the last reshape, in logical pixels
    float m_fHeight = 0.0F;
    float m_fScaleX = 0.0F;  ///< pixels per generation
    float m_fScaleY = 0.0F;  ///< pixels per unit of value; 0 while the y range has no height

private:
    CPlotter(wxWindow* pParent, const nestrix::CGLSurface::CLeniency&);

    void SetUp();
    void ComputeScales();
    void DrawFrame();
    void DrawCurve();
    void DrawLabels();

    nestrix::CGLSurface m_Surface;
    nestrix::CCurveThinner m_Thinner;
    bool m_bSetUp = false;       ///< OpenGL and the font are ready
    bool m_bViewPending = true;  ///< the plotter was off the screen when it was last reshaped

    wxDECLARE_EVENT_TABLE();
};
