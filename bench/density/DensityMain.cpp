#include <CLI/CLI.hpp>
#include <algorithm>
#include <cinttypes>
#include <cstdio>
#include <map>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "bench/density/MadeSets.h"
#include "nest/PackFreely.h"

using namespace nestrix;

namespace {

/// Average densities in per cent over 50 runs of 20 minutes on three threads: Gardeyn and Vanden Berghe, "An
/// open-source heuristic to reboot 2D nesting research", 2025.
const std::map<std::string, double> PUBLISHED{{"albano", 89.5}, {"blaz1", 84.7},   {"dagli", 89.2},
                                              {"fu", 92.2},     {"jakobs2", 84.9}, {"mao", 86.1},
                                              {"shapes1", 75.7}};

struct SMeasuring {
    std::vector<std::string> m_Sets;
    double m_Seconds = 60.0;
    uint64_t m_nSteps = 0;  ///< if not 0, instead of seconds
    int m_nFirstSeed = 1;
    int m_nSeeds = 5;
    int m_nThreads = 1;
    bool m_bAnyTurn = false;
};

/// What one search did.
struct SRun {
    double m_Density = 0.0;       ///< in per cent
    double m_FirstSeconds = 0.0;  ///< until the first packing
    double m_MostSeconds = 0.0;   ///< until 95 % of the last density
    double m_StepsPerSecond = 0.0;
};

class CGains final : public CPackSink {
public:
    void BetterPacking(const SFreePacking& /*packing*/, const SPackProgress& progress) override {
        m_Gains.push_back(progress);
    }
    [[nodiscard]] bool IsToStop() const override { return false; }

    [[nodiscard]] SRun Sum(const SPackResult& result) const {
        const double last = m_Gains.back().m_Density;
        const auto most = std::find_if(m_Gains.begin(), m_Gains.end(), [last](const SPackProgress& gain) {
            return gain.m_Density >= 0.95 * last;
        });
        return {100.0 * last, m_Gains.front().m_Seconds, most->m_Seconds,
                static_cast<double>(result.m_nSteps) / result.m_Seconds};
    }

private:
    std::vector<SPackProgress> m_Gains;
};

SInstance Find(const std::string& set) {
    if (!set.ends_with(".json")) {
        return bench::MakeSet(set);
    }
    SReading<SInstance> reading = ReadInstance(set);
    if (!reading.m_Value) {
        throw std::invalid_argument(set + ": " + reading.m_Findings.front().m_Message);
    }
    return std::move(*reading.m_Value);
}

SRun Measure(const SInstance& instance, const SMeasuring& measuring, int nSeed) {
    SPackSettings settings;
    settings.m_nSeed = static_cast<uint64_t>(nSeed);
    settings.m_nThreads = measuring.m_nThreads;
    if (measuring.m_nSteps > 0) {
        settings.m_Limits.m_nSteps = measuring.m_nSteps;
    } else {
        settings.m_Limits.m_Seconds = measuring.m_Seconds;
    }
    CGains gains;
    const SPackResult result = PackFreely(instance.m_Pieces, instance.m_Strip, settings, gains);
    return gains.Sum(result);
}

double MedianOf(std::vector<SRun> runs, double SRun::*pNumber) {
    std::sort(runs.begin(), runs.end(),
              [pNumber](const SRun& a, const SRun& b) { return a.*pNumber < b.*pNumber; });
    return runs[runs.size() / 2].*pNumber;
}

void PrintHead(const SMeasuring& measuring) {
    if (measuring.m_nSteps > 0) {
        std::printf("%" PRIu64 " steps", measuring.m_nSteps);
    } else {
        std::printf("%.3g s", measuring.m_Seconds);
    }
    std::printf(", threads: %d, seeds: %d to %d\n\n", measuring.m_nThreads, measuring.m_nFirstSeed,
                measuring.m_nFirstSeed + measuring.m_nSeeds - 1);
    std::printf(
        "| set | least %% | median %% | greatest %% | published %% | difference | first s | 95 %% after s | "
        "steps/s |\n|---|---:|---:|---:|---:|---:|---:|---:|---:|\n");
}

void PrintRow(const std::string& name, const std::vector<SRun>& runs) {
    const auto [least, greatest] = std::minmax_element(
        runs.begin(), runs.end(), [](const SRun& a, const SRun& b) { return a.m_Density < b.m_Density; });
    const double median = MedianOf(runs, &SRun::m_Density);
    std::printf("| %s | %.2f | %.2f | %.2f |", name.c_str(), least->m_Density, median, greatest->m_Density);
    const auto published = PUBLISHED.find(name);
    if (published != PUBLISHED.end()) {
        std::printf(" %.1f | %+.2f |", published->second, median - published->second);
    } else {
        std::printf(" | |");
    }
    std::printf(" %.3f | %.2f | %.0f |\n", MedianOf(runs, &SRun::m_FirstSeconds),
                MedianOf(runs, &SRun::m_MostSeconds), MedianOf(runs, &SRun::m_StepsPerSecond));
    std::fflush(stdout);
}

void MeasureAll(const SMeasuring& measuring) {
    PrintHead(measuring);
    double differences = 0.0;
    int nPublished = 0;
    for (const std::string& set : measuring.m_Sets) {
        SInstance instance = Find(set);
        for (SPiece& piece : instance.m_Pieces) {
            piece.m_Turns.m_bAny = piece.m_Turns.m_bAny || measuring.m_bAnyTurn;
        }
        std::vector<SRun> runs;
        for (int i = 0; i < measuring.m_nSeeds; ++i) {
            runs.push_back(Measure(instance, measuring, measuring.m_nFirstSeed + i));
        }
        PrintRow(instance.m_Name, runs);
        if (const auto published = PUBLISHED.find(instance.m_Name); published != PUBLISHED.end()) {
            differences += MedianOf(runs, &SRun::m_Density) - published->second;
            ++nPublished;
        }
    }
    if (nPublished > 0) {
        std::printf("\nmean difference: %+.2f\n", differences / nPublished);
    }
}

}  // namespace

int main(int argc, char** argv) {
    SMeasuring measuring;
    CLI::App app("Measures the densities of free packing.", "nestrix-density");
    app.add_option("SET", measuring.m_Sets,
                   "instances (.json), or made sets: sheet-PIECES-SEED, rectangles-PIECES-SEED,\n"
                   "letters-PIECES-SEED, blobs-PIECES-SEED, copies-PIECES-KINDS-VERTICES-SEED")
        ->required();
    app.add_option("--seconds", measuring.m_Seconds, "of each search")->capture_default_str();
    app.add_option(
        "--steps", measuring.m_nSteps,
        "of each search, all threads together, instead of seconds: the same packings at any speed");
    app.add_option("--first-seed", measuring.m_nFirstSeed, "of each set")->capture_default_str();
    app.add_option("--seeds", measuring.m_nSeeds, "how many seeds")->capture_default_str();
    app.add_option("--threads", measuring.m_nThreads, "of each search")->capture_default_str();
    app.add_flag("--any", measuring.m_bAnyTurn, "every piece may be turned by any angle");
    CLI11_PARSE(app, argc, argv);
    try {
        MeasureAll(measuring);
    } catch (const std::exception& error) {
        std::fprintf(stderr, "nestrix-density: %s\n", error.what());
        return 1;
    }
    return 0;
}
