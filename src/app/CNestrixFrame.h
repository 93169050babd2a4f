#pragma once

#include <wx/event.h>
#include <wx/frame.h>
#include <wx/gauge.h>
#include <wx/slider.h>
#include <wx/textctrl.h>

#include "app/CNestrixScrolledWindow.h"
#include "ga/CContainer.h"

class CPlotter;
class CPolyDisplay;
class CPolyThread;

/// The main window: the form from the resource file, with the packing's canvas and three plotters planted
/// into it. Owns the search's state and, while there is a run, its worker thread.
///
/// Controls are looked up by their resource names at each use; one that the form does not have is left
/// out of whatever the command does.
///
/// Order of use: construct, Show, Initialize. The window's thread only; what the worker may touch meanwhile
/// is told at CContainer.
class CNestrixFrame : public wxFrame, public CScrollCallback {
public:
    /// Loads the form. Where that fails, says so in a message box and goes on without.
    explicit CNestrixFrame(const wxString& title);

    /// Has the worker, if there is one, abandon its search, and waits for it: far less than half a second.
    ~CNestrixFrame() override;

    /// Seeds the random generator, plants the canvases into the form and finds the controls that show
    /// progress. Where the screen has no OpenGL, says so in a message box and goes on without pictures. Once,
    /// after the frame has been shown.
    void Initialize();

    void OnScrolled() override;

    // The list of polygon files. Files are read when a run starts, not here.
    void OnMenuNext(wxCommandEvent& event);
    void OnAdd(wxCommandEvent& event);
    void OnClear(wxCommandEvent& event);
    void OnRemove(wxCommandEvent& event);

    // The run.
    void OnRunGA(wxCommandEvent& event);
    void OnStop(wxCommandEvent& event);
    void OnMutationChange(wxScrollEvent& event);
    void OnCullThresholdChange(wxScrollEvent& event);

    // Its progress and its result.
    void OnGenerationDone(wxCommandEvent& event);
    void OnShowResult(wxCommandEvent& event);

    CPolyDisplay* m_pDisplay = nullptr;
    CPlotter* m_pAvgPlotter = nullptr;
    CPlotter* m_pBestPlotter = nullptr;
    CPlotter* m_pTotalPopPlotter = nullptr;
    CNestrixScrolledWindow* m_pScrolledWindow = nullptr;
    CContainer m_Container;
    int m_nGenerations = 0;  ///< of the current run; 0 before the first
    wxGauge* m_pGauge = nullptr;
    wxTextCtrl* m_pTxtAvgFitness = nullptr;
    wxTextCtrl* m_pTxtBestFitness = nullptr;
    wxTextCtrl* m_pTxtTotalPop = nullptr;
    CPolyThread* m_pThread = nullptr;  ///< owned: running, or finished and not yet cleared away

private:
    void LoadForm();
    void LayOutForm();
    void Plant(wxWindow* pCanvas, const char* pPlaceholder);
    CPlotter* PlantPlotter(const char* pPlaceholder);
    void HideCanvasesWithoutPlace();
    void LoadPolygons(const wxArrayString& paths);
    [[nodiscard]] bool LoadPolygon(const wxString& path);
    void ResetPlotters();
    void StartThread();
    void ShowRatio(const char* pSlider, const char* pField);
    void ShowGauge(int nGeneration);
    [[nodiscard]] bool IsNewerNoticeQueued();
    void ShowBestPacking();

    wxDECLARE_EVENT_TABLE();
};
