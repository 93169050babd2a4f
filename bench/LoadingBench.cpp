#include <benchmark/benchmark.h>

#include <string>

#include "tests/support/CSeededRandom.h"
#include "tests/support/CTemporaryFolder.h"
#include "tests/support/Outlines.h"
#include "tests/support/PolygonMaking.h"

namespace nestrix {

namespace {

/// Reads and analyses one polygon with as many vertices as the range says.
void LoadPolygon(benchmark::State& state,
                 support::Outline (*makeOutline)(support::CSeededRandom&, int, float, float)) {
    support::CSeededRandom random(1);
    const support::CTemporaryFolder folder;
    const std::string path =
        folder.Write("large.pol", support::PolygonFileText(support::MakeRawPolygon(
                                      makeOutline(random, static_cast<int>(state.range(0)), 400.0F, 400.0F),
                                      {}, {400.0F, 400.0F, 0.0F})));
    for (auto _ : state) {
        CPolygon polygon;
        if (!polygon.ReadPolygon(path.c_str())) {
            state.SkipWithError("the file cannot be read");
        }
        benchmark::DoNotOptimize(polygon.m_FrontPoints.size());
    }
}

support::Outline MakeSlant(support::CSeededRandom& /*random*/, int nVertices, float fWidth, float fHeight) {
    return support::SlantOutline(nVertices, fWidth, fHeight);
}

BENCHMARK_CAPTURE(LoadPolygon, convex, support::ConvexOutline)
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(LoadPolygon, lobed, support::LobedOutline)
    ->Arg(1'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);

BENCHMARK_CAPTURE(LoadPolygon, slant, MakeSlant)
    ->Arg(1'000)
    ->Arg(20'000)
    ->Arg(100'000)
    ->Unit(benchmark::kMillisecond);

}  // namespace

}  // namespace nestrix
