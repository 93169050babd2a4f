#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <new>
#include <vector>

#include "app/CNestrixFrame.h"
#include "display/CPolyDisplay.h"
#include "display/CanvasText.h"

using namespace nestrix;

namespace {

void SetText(wxTextCtrl* pField, const std::string& text) {
    if (pField != nullptr) {
        pField->SetValue(text);
    }
}

}  // namespace

/// No copy of the statistics travels in the notice. The worker may be generations ahead, so the container
/// is asked for what was true when this one ended.
void CNestrixFrame::OnGenerationDone(wxCommandEvent& event) {
    const int nGeneration = event.GetInt();
    const SGenerationStatistics statistics = m_Container.TakeStatistics(nGeneration);
    const int nPopulation = m_Container.PopulationSize();
    ShowGauge(nGeneration);
    // The fields cost fifty times more than all the rest. With small sets notices come faster than that, so
    // only the newest is written; it always is.
    if (!IsNewerNoticeQueued()) {
        SetText(m_pTxtAvgFitness, NumberText(statistics.m_fAverageFitness, 6));
        SetText(m_pTxtBestFitness, NumberText(statistics.m_fBestFitness, 6));
        SetText(m_pTxtTotalPop, std::to_string(nPopulation));
    }
    const float fGeneration = static_cast<float>(nGeneration);
    m_pAvgPlotter->AddValue(fGeneration, statistics.m_fAverageFitness);
    m_pBestPlotter->AddValue(fGeneration, statistics.m_fBestFitness);
    m_pTotalPopPlotter->AddValue(fGeneration, static_cast<float>(nPopulation));
    for (CPlotter* pPlotter : {m_pAvgPlotter, m_pBestPlotter, m_pTotalPopPlotter}) {
        pPlotter->Refresh(true, nullptr);
    }
}

/// A run of no generations still reports its first one: the gauge stays as it is.
void CNestrixFrame::ShowGauge(int nGeneration) {
    if (m_pGauge == nullptr || m_nGenerations <= 0) {
        return;
    }
    const std::int64_t nRange = m_pGauge->GetRange();
    const std::int64_t nValue = nRange * nGeneration / m_nGenerations;
    // A straggler of an earlier, longer run may be past this one's end.
    m_pGauge->SetValue(static_cast<int>(std::clamp<std::int64_t>(nValue, 0, nRange)));
}

bool CNestrixFrame::IsNewerNoticeQueued() {
    const wxCriticalSectionLocker locker(m_pendingEventsLock);
    if (m_pendingEvents == nullptr) {
        return false;
    }
    return std::any_of(m_pendingEvents->begin(), m_pendingEvents->end(), [](const wxObject* pObject) {
        const auto* pEvent = static_cast<const wxEvent*>(pObject);
        return pEvent->GetEventType() == wxEVT_MENU && pEvent->GetId() == ID_GENERATION_DONE;
    });
}

void CNestrixFrame::OnShowResult(wxCommandEvent&) {
    try {
        ShowBestPacking();
    } catch (const std::bad_alloc&) {
        m_pDisplay->Clear();
        std::puts("Not enough memory to show the result");
    }
    m_pDisplay->Refresh(true, nullptr);
}

void CNestrixFrame::ShowBestPacking() {
    const CChromosome best = m_Container.CopyBestChromosome();
    std::vector<CPolygon> placed;
    m_Container.EvaluateFitnessValue(best, placed, false);
    m_pDisplay->Clear();
    for (const CPolygon& polygon : placed) {
        m_pDisplay->AddPolygon(polygon);
    }
    std::printf("Best Chromosome so far is %s\n", NumberText(best.m_fFitness, 6).c_str());
}
