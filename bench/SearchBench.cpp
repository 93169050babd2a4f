#include <benchmark/benchmark.h>

#include <algorithm>
#include <filesystem>
#include <string>
#include <vector>

#include "ga/CContainer.h"
#include "tests/support/CSilentSink.h"
#include "tests/support/CStdoutCapture.h"

namespace nestrix {

namespace {

/// A whole search over one sample set: 100 chromosomes, 100 generations.
void SearchSamples(benchmark::State& state, const std::filesystem::path& folder) {
    constexpr int POPULATION = 100;
    constexpr int GENERATIONS = 100;
    std::vector<std::string> paths;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().extension() == ".pol") {
            paths.push_back(entry.path().string());
        }
    }
    std::sort(paths.begin(), paths.end());
    CContainer container;
    support::CNobody nobody;
    for (auto _ : state) {
        const support::CStdoutCapture capture;
        container.Clear();
        for (const std::string& path : paths) {
            container.AddPolygon(path.c_str());
        }
        container.RunSearch(POPULATION, GENERATIONS, 1, nobody);
    }
    state.SetItemsProcessed(state.iterations());
    state.counters["pieces"] = static_cast<double>(paths.size());
}

const bool g_bRegistered = [] {
    std::vector<std::filesystem::path> folders;
    std::error_code missing;
    for (const auto& entry : std::filesystem::directory_iterator("samples", missing)) {
        if (entry.is_directory()) {
            folders.push_back(entry.path());
        }
    }
    std::sort(folders.begin(), folders.end());
    for (const std::filesystem::path& folder : folders) {
        benchmark::RegisterBenchmark(("search/" + folder.filename().string()).c_str(),
                                     [folder](benchmark::State& state) { SearchSamples(state, folder); })
            ->Unit(benchmark::kMillisecond);
    }
    return true;
}();

}  // namespace

}  // namespace nestrix
