#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <limits>
#include <string>
#include <vector>

#include "bench/Quantiles.h"
#include "ga/CContainer.h"
#include "ga/CDecoder.h"
#include "tests/support/BenchmarkSets.h"

namespace nestrix {

namespace {

/// The layouts of a first generation, and the least time that each has taken so far.
class CTimedLayouts {
public:
    explicit CTimedLayouts(const support::SBenchmarkSet& set) {
        constexpr unsigned int CHROMOSOMES = 128;
        m_Container.m_Polygons = support::MakeBenchmarkPieces(set);
        std::srand(1);
        m_Container.PrepareEverything(CHROMOSOMES);
        m_Container.RandomlyGenerateFirstGeneration();
        for (CChromosome& chromosome : m_Container.m_Population) {
            m_Container.ValidateChromosome(chromosome);
            m_Times.push_back(std::numeric_limits<double>::infinity());
        }
    }

    void PlaceAll() {
        CDecoder decoder(m_Container.m_Polygons, m_Container.Strip(), m_Container.m_fTotalHeight);
        for (size_t i = 0; i < m_Times.size(); ++i) {
            CChromosome& chromosome = m_Container.m_Population[i];
            const auto begin = std::chrono::steady_clock::now();
            chromosome.m_fFitness = decoder.Evaluate(chromosome.Genes());
            const std::chrono::duration<double> time = std::chrono::steady_clock::now() - begin;
            m_Times[i] = std::min(m_Times[i], time.count());
        }
    }

    /// Of the layouts with a piece that hangs, or of those without.
    [[nodiscard]] std::vector<double> TimesOf(bool bHanging) const {
        std::vector<double> times;
        for (size_t i = 0; i < m_Times.size(); ++i) {
            // What hangs reaches up to the starting height, twice the total height, or nearly so.
            const float fFitness = m_Container.m_Population[i].m_fFitness;
            if ((fFitness < -0.5F * m_Container.m_fTotalHeight) == bHanging) {
                times.push_back(m_Times[i]);
            }
        }
        return times;
    }

private:
    CContainer m_Container;
    std::vector<double> m_Times;
};

/// What a piece that hangs costs: layouts with one and layouts without, placed in turn.
void CompareHanging(benchmark::State& state, const support::SBenchmarkSet& set) {
    CTimedLayouts layouts(set);
    for (auto _ : state) {
        layouts.PlaceAll();
    }
    const std::vector<double> with = layouts.TimesOf(true);
    const std::vector<double> without = layouts.TimesOf(false);
    if (with.empty() || without.empty()) {
        state.SkipWithError("all layouts are of one kind");
        return;
    }
    state.counters["hanging"] = static_cast<double>(with.size());
    state.counters["without_us"] = Median(without) * 1e6;
    state.counters["with_us"] = Median(with) * 1e6;
    state.counters["worst_us"] = Quantile(with, 1.0) * 1e6;
    state.counters["ratio"] = Median(with) / Median(without);
    state.counters["worst_ratio"] = Quantile(with, 1.0) / Median(without);
}

const bool g_bRegistered = [] {
    const support::SBenchmarkSet& set = support::HangingSet();
    benchmark::RegisterBenchmark(
        ("hanging/" + std::string(set.m_Kind.m_Name) + "/" + std::to_string(set.m_nPieces) + "x" +
         std::to_string(set.m_Kind.m_nVertices))
            .c_str(),
        [&set](benchmark::State& state) { CompareHanging(state, set); })
        ->Iterations(5)
        ->Unit(benchmark::kMillisecond);
    return true;
}();

}  // namespace

}  // namespace nestrix
