#include <benchmark/benchmark.h>

#include <array>
#include <chrono>
#include <string>
#include <vector>

#include "bench/Quantiles.h"
#include "ga/CContainer.h"
#include "tests/reference/CReferenceSearch.h"
#include "tests/support/BenchmarkSets.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

using support::SBenchmarkSearch;

template <class TAction>
double SecondsOf(TAction&& action) {
    const auto begin = std::chrono::steady_clock::now();
    action();
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count();
}

double TimeEngine(const SBenchmarkSearch& search, const std::vector<CPolygon>& pieces, unsigned int nSeed) {
    const support::CStdoutCapture capture;
    support::CNobody nobody;
    CContainer container;
    container.m_Polygons = pieces;
    return SecondsOf(
        [&] { container.RunSearch(search.m_nPopulation, search.m_nGenerations, nSeed, nobody); });
}

double TimePlain(const SBenchmarkSearch& search, const std::vector<CPolygon>& pieces, unsigned int nSeed) {
    reference::CReferenceSearch plain;
    plain.m_Polygons = pieces;
    return SecondsOf(
        [&] { plain.Run(static_cast<unsigned int>(search.m_nPopulation), search.m_nGenerations, nSeed); });
}

/// Whole searches from their first generation, by the engine and by the plain reference in turn, with some
/// seeds: each begins with other layouts.
void CompareSearches(benchmark::State& state, const SBenchmarkSearch& search) {
    constexpr unsigned int SEEDS = 8;
    const std::vector<CPolygon> pieces = support::MakeBenchmarkPieces(search.m_Set);
    std::array<std::vector<double>, SEEDS> engine;
    std::array<std::vector<double>, SEEDS> plain;
    for (auto _ : state) {
        for (unsigned int nSeed = 0; nSeed < SEEDS; ++nSeed) {
            engine[nSeed].push_back(TimeEngine(search, pieces, nSeed + 1));
            plain[nSeed].push_back(TimePlain(search, pieces, nSeed + 1));
        }
    }
    double engineTotal = 0.0;
    double plainTotal = 0.0;
    std::vector<double> ratios;
    for (unsigned int nSeed = 0; nSeed < SEEDS; ++nSeed) {
        engineTotal += Median(engine[nSeed]);
        plainTotal += Median(plain[nSeed]);
        ratios.push_back(Median(plain[nSeed]) / Median(engine[nSeed]));
    }
    state.counters["plain_ms"] = plainTotal / SEEDS * 1e3;
    state.counters["engine_ms"] = engineTotal / SEEDS * 1e3;
    state.counters["ratio"] = plainTotal / engineTotal;
    state.counters["least_ratio"] = Quantile(ratios, 0.0);
}

const bool g_bRegistered = [] {
    for (const SBenchmarkSearch& search : support::BenchmarkSearches()) {
        const support::SBenchmarkSet& set = search.m_Set;
        const std::string name = "whole/" + std::string(set.m_Kind.m_Name) + "/" +
                                 std::to_string(set.m_nPieces) + "x" + std::to_string(set.m_Kind.m_nVertices);
        benchmark::RegisterBenchmark(name.c_str(),
                                     [&search](benchmark::State& state) { CompareSearches(state, search); })
            ->Iterations(3)
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace

}  // namespace nestrix
