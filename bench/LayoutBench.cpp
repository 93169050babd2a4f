#include <benchmark/benchmark.h>

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <string>
#include <vector>

#include "bench/Quantiles.h"
#include "ga/CContainer.h"
#include "ga/CDecoder.h"
#include "tests/reference/ReferencePlacement.h"
#include "tests/support/BenchmarkSets.h"

namespace nestrix {

namespace {

using support::SBenchmarkKind;
using support::SBenchmarkSet;

/// A polygon set with chromosomes as a search breeds them: crossed once, so with ties among the order keys,
/// and clamped into the strip, so with pieces flush at the walls.
class CScenario {
public:
    CScenario(const SBenchmarkKind& kind, int nPieces) {
        // A large generation: so many that a turn is a search's steady state, not its first cold layouts, and
        // that the processor cannot learn the branches of all of them by heart.
        constexpr unsigned int CHROMOSOMES = 256;
        m_Container.m_Polygons = support::MakeBenchmarkPieces(kind, nPieces);
        std::srand(1);
        m_Container.PrepareEverything(CHROMOSOMES);
        m_Container.RandomlyGenerateFirstGeneration();
        std::vector<CChromosome>& parents = m_Container.m_Population;
        for (size_t i = 0; i < parents.size(); ++i) {
            CChromosome& child = m_Chromosomes.emplace_back();
            parents[i].CrossOver(parents[(i + 1) % parents.size()], &child, 1);
            m_Container.ValidateChromosome(child);
        }
    }

    [[nodiscard]] CDecoder MakeDecoder() const {
        return {m_Container.m_Polygons, m_Container.Strip(), m_Container.m_fTotalHeight};
    }
    [[nodiscard]] float PlacePlainly(const CChromosome& chromosome) const {
        return reference::Place(chromosome.Genes(), m_Container.m_Polygons, m_Container.m_fTotalHeight)
            .m_fFitness;
    }
    [[nodiscard]] const std::vector<CChromosome>& Chromosomes() const { return m_Chromosomes; }

private:
    CContainer m_Container;
    std::vector<CChromosome> m_Chromosomes;
};

/// Seconds per call of `place`, over the first nCount chromosomes.
template <class TPlace>
double TimeLayouts(const CScenario& scenario, size_t nCount, TPlace&& place) {
    const auto begin = std::chrono::steady_clock::now();
    for (size_t i = 0; i < nCount; ++i) {
        benchmark::DoNotOptimize(place(scenario.Chromosomes()[i]));
    }
    return std::chrono::duration<double>(std::chrono::steady_clock::now() - begin).count() /
           static_cast<double>(nCount);
}

double TimeEngine(const CScenario& scenario, CDecoder& decoder) {
    return TimeLayouts(scenario, scenario.Chromosomes().size(), [&decoder](const CChromosome& chromosome) {
        return decoder.Evaluate(chromosome.Genes());
    });
}

/// One layout by the engine and by the plain reference, in turn, so that both meet the same machine.
void CompareLayouts(benchmark::State& state, const SBenchmarkSet& set) {
    const CScenario scenario(set.m_Kind, set.m_nPieces);
    CDecoder decoder = scenario.MakeDecoder();
    const size_t nPlain = set.m_nPieces >= 1000 ? 2 : 16;
    std::vector<double> engine;
    std::vector<double> plain;
    for (auto _ : state) {
        engine.push_back(TimeEngine(scenario, decoder));
        plain.push_back(TimeLayouts(scenario, nPlain, [&scenario](const CChromosome& chromosome) {
            return scenario.PlacePlainly(chromosome);
        }));
        state.SetIterationTime(engine.back());
    }
    const CDropPlacement::SCounts& counts = decoder.Counts();
    state.counters["plain_us"] = Median(plain) * 1e6;
    state.counters["engine_us"] = Median(engine) * 1e6;
    state.counters["ratio"] = Median(plain) / Median(engine);
    state.counters["layouts/s"] = 1.0 / Median(engine);
    state.counters["walked_%"] = 100.0 * static_cast<double>(counts.m_nWalked) /
                                 static_cast<double>(counts.m_nWalked + counts.m_nShort);
}

/// How the time of a layout grows with the number of pieces.
void GrowLayouts(benchmark::State& state, const SBenchmarkKind& kind) {
    const int nPieces = static_cast<int>(state.range(0));
    const CScenario scenario(kind, nPieces);
    CDecoder decoder = scenario.MakeDecoder();
    std::vector<double> engine;
    for (auto _ : state) {
        engine.push_back(TimeEngine(scenario, decoder));
        state.SetIterationTime(engine.back());
    }
    state.counters["engine_us"] = Median(engine) * 1e6;
    state.counters["ns/piece"] = Median(engine) * 1e9 / nPieces;
}

const bool g_bRegistered = [] {
    for (const SBenchmarkSet& set : support::BenchmarkSets()) {
        const std::string size = std::to_string(set.m_nPieces) + "x" + std::to_string(set.m_Kind.m_nVertices);
        benchmark::RegisterBenchmark(("layout/" + std::string(set.m_Kind.m_Name) + "/" + size).c_str(),
                                     [set](benchmark::State& state) { CompareLayouts(state, set); })
            ->UseManualTime()
            ->Iterations(set.m_nPieces >= 1000 ? 9 : 41)
            ->Unit(benchmark::kMicrosecond);
    }
    for (const SBenchmarkSet& set : support::BenchmarkSets()) {
        if (set.m_nPieces != 100) {
            continue;
        }
        const std::string vertices = std::to_string(set.m_Kind.m_nVertices);
        auto* const pGrowth =
            benchmark::RegisterBenchmark(
                ("growth/" + std::string(set.m_Kind.m_Name) + "/" + vertices + "/pieces").c_str(),
                [set](benchmark::State& state) { GrowLayouts(state, set.m_Kind); })
                ->UseManualTime()
                ->Iterations(15)
                ->Unit(benchmark::kMicrosecond);
        for (const int nPieces : {25, 50, 100, 200, 500, 1000, 2000}) {
            pGrowth->Arg(nPieces);
        }
    }
    return true;
}();

}  // namespace

}  // namespace nestrix
