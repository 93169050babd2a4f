#include <wx/listbox.h>
#include <wx/spinctrl.h>

#include <cstdio>
#include <new>

#include "app/CNestrixFrame.h"
#include "app/CPolyThread.h"
#include "app/FormControls.h"
#include "display/CPolyDisplay.h"
#include "display/CanvasText.h"

using namespace nestrix;

namespace {

/// Where a slider stands between its ends, 0 .. 1. The only mapping from a slider to a parameter. A slider
/// without room between its ends gives what a division by zero gives.
float SliderRatio(const wxSlider& slider) {
    const int nFromLow = slider.GetValue() - slider.GetMin();
    const int nRange = slider.GetMax() - slider.GetMin();
    return static_cast<float>(nFromLow) / static_cast<float>(nRange);
}

/// A parameter whose control is missing counts as 0.
int SpinValue(const wxSpinCtrl* pSpin) {
    return pSpin != nullptr ? pSpin->GetValue() : 0;
}

}  // namespace

void CNestrixFrame::OnRunGA(wxCommandEvent&) {
    if (m_pThread != nullptr && m_pThread->IsRunning()) {
        std::puts("Algorithm thread is already running");
        return;
    }
    if (const auto* pSlider = FindControl<wxSlider>(*this, "ID_SLIDER_CULL_THRESHOLD")) {
        m_Container.m_fCullThreshold = SliderRatio(*pSlider);
    }
    if (const auto* pSlider = FindControl<wxSlider>(*this, "ID_SLIDER_MUTATION")) {
        g_MutationProbability = SliderRatio(*pSlider);
    }
    const auto* pList = FindControl<wxListBox>(*this, "ID_LST_POLYGON");
    m_Container.Clear();
    if (pList != nullptr) {
        LoadPolygons(pList->GetStrings());
    }
    m_nGenerations = SpinValue(FindControl<wxSpinCtrl>(*this, "ID_SPIN_GENERATIONS"));
    ResetPlotters();
    // With nothing to pack there is no run; the last one has been cleared away nevertheless, deliberately.
    if (pList != nullptr && !pList->IsEmpty()) {
        StartThread();
    }
}

/// A bad file never stops the run. The container has reported it too: the line stands twice, deliberately.
void CNestrixFrame::LoadPolygons(const wxArrayString& paths) {
    for (const wxString& path : paths) {
        if (!LoadPolygon(path)) {
            std::printf("Couldn't Load Polygon %s\n", static_cast<const char*>(path.utf8_str()));
        }
    }
}

/// Beyond this point the want of memory would end the program, and it may be this one file's only.
bool CNestrixFrame::LoadPolygon(const wxString& path) {
    try {
        // fn_str and utf8_str rather than c_str: in the "C" locale that is empty for all but plain ASCII.
        return m_Container.AddPolygon(path.fn_str());
    } catch (const std::bad_alloc&) {
        std::printf("Not enough memory to read %s\n", static_cast<const char*>(path.utf8_str()));
        return false;
    }
}

void CNestrixFrame::ResetPlotters() {
    for (CPlotter* pPlotter : {m_pAvgPlotter, m_pBestPlotter, m_pTotalPopPlotter}) {
        pPlotter->Reset();
    }
    for (CPlotter* pPlotter : {m_pAvgPlotter, m_pBestPlotter, m_pTotalPopPlotter}) {
        pPlotter->Reshape(static_cast<float>(m_nGenerations));
        // A run repaints them with its first notice, but there may be nothing to run.
        pPlotter->Refresh(true, nullptr);
    }
}

void CNestrixFrame::StartThread() {
    m_Container.m_pContactDisplay = m_pDisplay;
    m_Container.m_pEventHandler = this;
    delete m_pThread;
    m_pThread = new CPolyThread(this);
    m_pThread->SetPopulation(SpinValue(FindControl<wxSpinCtrl>(*this, "ID_SPIN_INITIAL_POPULATION")));
    m_pThread->SetGenerations(SpinValue(FindControl<wxSpinCtrl>(*this, "ID_SPIN_GENERATIONS")));
    m_pThread->Create();
    const wxThreadError result = m_pThread->Run();
    std::printf("Thread Run returned: %d\n", static_cast<int>(result));
}

void CNestrixFrame::OnStop(wxCommandEvent&) {
    m_Container.m_bStop = true;
    if (m_pThread != nullptr) {
        m_pThread->StopAndJoin();
        delete m_pThread;
        m_pThread = nullptr;
    }
}

/// Shows the threshold and no more: it reaches the container with the next run, deliberately.
void CNestrixFrame::OnCullThresholdChange(wxScrollEvent&) {
    ShowRatio("ID_SLIDER_CULL_THRESHOLD", "ID_TXT_THRESHOLD");
}

/// Unlike the other slider's, the change takes effect at once, in the middle of a run.
void CNestrixFrame::OnMutationChange(wxScrollEvent&) {
    ShowRatio("ID_SLIDER_MUTATION", "ID_TXT_MUTATION_PROBABILITY");
    if (const auto* pSlider = FindControl<wxSlider>(*this, "ID_SLIDER_MUTATION")) {
        g_MutationProbability = SliderRatio(*pSlider);
    }
}

void CNestrixFrame::ShowRatio(const char* pSlider, const char* pField) {
    const auto* pFrom = FindControl<wxSlider>(*this, pSlider);
    auto* pTo = FindControl<wxTextCtrl>(*this, pField);
    if (pFrom != nullptr && pTo != nullptr) {
        pTo->SetValue(NumberText(SliderRatio(*pFrom), 2));
    }
}
