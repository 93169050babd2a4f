#include <GL/gl.h>
#include <benchmark/benchmark.h>
#include <wx/app.h>
#include <wx/evtloop.h>
#include <wx/frame.h>
#include <wx/init.h>
#include <wx/panel.h>

#include <chrono>
#include <vector>

#include "display/CPolyDisplay.h"
#include "ga/CContainer.h"
#include "tests/display/CVirtualDisplay.h"
#include "tests/display/EventPump.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/Chromosomes.h"

using namespace nestrix;

namespace {

/// Times the canvas's own handling of its paint events, until the last pixel is drawn.
class CPaintTimer {
public:
    explicit CPaintTimer(CPolyDisplay& canvas) : m_Canvas(canvas) {
        m_Canvas.Bind(wxEVT_PAINT, &CPaintTimer::OnPaint, this);
    }
    ~CPaintTimer() { m_Canvas.Unbind(wxEVT_PAINT, &CPaintTimer::OnPaint, this); }
    CPaintTimer(const CPaintTimer&) = delete;
    CPaintTimer& operator=(const CPaintTimer&) = delete;

    /// Seconds that one repaint took.
    double Repaint() {
        const int nPaints = m_nPaints;
        m_Canvas.Refresh();
        (void)support::PumpUntil([this, nPaints] { return m_nPaints > nPaints; });
        return m_fSeconds;
    }

private:
    void OnPaint(wxPaintEvent& event) {
        const auto begin = std::chrono::steady_clock::now();
        m_Canvas.OnPaint(event);
        glFinish();
        m_fSeconds = std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
        ++m_nPaints;
    }

    CPolyDisplay& m_Canvas;
    double m_fSeconds = 0.0;
    int m_nPaints = 0;
};

std::vector<CPolygon> MakePacking(int nPieces) {
    CContainer container;
    container.m_Polygons = support::MakeBenchmarkPieces(support::BenchmarkSets()[2].m_Kind, nPieces);
    container.PrepareEverything(1);
    container.RandomlyGenerateFirstGeneration();
    container.ValidateChromosome(container.m_Population[0]);
    std::vector<CPolygon> placed;
    support::PlaceChromosome(container, container.m_Population[0], placed, nullptr);
    return placed;
}

/// Frames a second of the canvas, without overlays and with all of them.
void PaintCanvas(benchmark::State& state) {
    auto* const pFrame = new wxFrame(nullptr, wxID_ANY, "Canvas", wxDefaultPosition, wxSize(500, 700));
    auto* const pPanel = new wxPanel(pFrame);
    auto* const pCanvas = new CPolyDisplay(pPanel);
    pFrame->Show();
    pCanvas->Initialize(400.0F, 600.0F);
    for (const CPolygon& polygon : MakePacking(static_cast<int>(state.range(0)))) {
        pCanvas->AddPolygon(polygon);
    }
    for (bool& bOption : g_PolyOptions) {
        bOption = state.range(1) != 0;
    }
    {
        CPaintTimer timer(*pCanvas);
        timer.Repaint();
        for (auto _ : state) {
            state.SetIterationTime(timer.Repaint());
        }
    }
    state.SetItemsProcessed(state.iterations());
    pFrame->Destroy();
    wxTheApp->ProcessIdle();
}

BENCHMARK(PaintCanvas)
    ->ArgNames({"pieces", "overlays"})
    ->Args({100, 0})
    ->Args({1000, 0})
    ->Args({1000, 1})
    ->UseManualTime()
    ->Iterations(60)
    ->Unit(benchmark::kMillisecond);

}  // namespace

int main(int argc, char** argv) {
    benchmark::Initialize(&argc, argv);
    const support::CVirtualDisplay display;
    wxApp::SetInstance(new wxApp);
    if (!wxEntryStart(argc, argv)) {
        return 1;
    }
    wxTheApp->SetExitOnFrameDelete(false);
    {
        wxEventLoop loop;
        const wxEventLoopActivator active(&loop);
        benchmark::RunSpecifiedBenchmarks();
    }
    wxEntryCleanup();
    return 0;
}
