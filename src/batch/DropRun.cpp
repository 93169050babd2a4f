#include "batch/DropRun.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <optional>

#include "base/CNumericLocale.h"
#include "base/NumberText.h"
#include "batch/CSilence.h"
#include "batch/Complaints.h"
#include "batch/DropPlan.h"
#include "batch/ExitStatus.h"
#include "batch/Improvements.h"
#include "batch/PolygonInput.h"
#include "batch/ResultRecord.h"
#include "formats/PackingSvg.h"
#include "ga/CDecoder.h"
#include "ga/GeneticSearch.h"

namespace nestrix {

namespace {

double AreaOf(const SInputSet& set) {
    double area = 0.0;
    for (const SPiece& piece : set.m_Pieces) {
        area += piece.m_nQuantity * AreaOf(piece.m_Shape);
    }
    return area;
}

/// A dropped search, with what is told of it besides the engine's lines.
struct SDropSearch {
    std::vector<CPolygon> m_Polygons;  ///< one for every copy
    SStrip m_Strip;
    double m_Area = 0.0;  ///< of all copies
    CSearchState m_State;
    std::vector<SImprovement> m_Improvements;
    int m_nGeneration = -1;  ///< the last complete one
    double m_Seconds = 0.0;
    std::optional<SPacking> m_Packing;
};

/// Hears of generations. The search goes on where nobody hears its lines: what was lost is said at the end.
class CDropProgress final : public CSearchSink {
public:
    /// @param abandoned becomes true when the program is asked to end.
    CDropProgress(SDropSearch& search, const CRelaxed<bool>& abandoned, CWatch& watch)
        : m_Search(search),
          m_Abandoned(abandoned),
          m_Watch(watch),
          m_fStacked(StackedHeight(search.m_Polygons)) {}

    void GenerationDone(int nGeneration) override {
        m_Search.m_nGeneration = nGeneration;
        const double height = m_fStacked - m_Search.m_State.m_fBestFitness;
        std::vector<SImprovement>& improvements = m_Search.m_Improvements;
        if (improvements.empty() || height < improvements.back().m_Height) {
            improvements.push_back({Seconds(), static_cast<uint64_t>(nGeneration), height,
                                    m_Search.m_Area / (m_Search.m_Strip.m_fWidth * height)});
            ShowBest();
        }
    }
    [[nodiscard]] bool IsToStop() const override { return false; }
    [[nodiscard]] const CRelaxed<bool>* AbandonRequest() const override { return &m_Abandoned; }

    /// Since the search began.
    [[nodiscard]] double Seconds() const {
        return std::chrono::duration<double>(std::chrono::steady_clock::now() - m_Begin).count();
    }

private:
    void ShowBest() {
        if (m_Watch.IsWanted()) {
            m_Watch.Offer(
                [&search = m_Search, fStacked = m_fStacked, best = m_Search.m_State.CopyBestChromosome()] {
                    CDecoder decoder(search.m_Polygons, search.m_Strip, fStacked);
                    (void)decoder.Evaluate(best.Genes());
                    return DrawPackingSvg(search.m_Polygons, decoder.Packing());
                });
        }
    }

    SDropSearch& m_Search;
    const CRelaxed<bool>& m_Abandoned;
    CWatch& m_Watch;
    float m_fStacked;
    std::chrono::steady_clock::time_point m_Begin = std::chrono::steady_clock::now();
};

void SayWhenItWasStopped(const SDropSearch& search, int nGenerations) {
    if (!search.m_Packing) {
        Complain("stopped before there was a packing");
    } else if (search.m_nGeneration < 0) {
        Complain("stopped within the first generation");
    } else {
        Complain("stopped after generation " + std::to_string(search.m_nGeneration) + " of " +
                 std::to_string(nGenerations));
    }
}

void Search(const SPackTask& task, SDropSearch& search) {
    const SDropOptions& options = task.m_Options.m_Drop;
    for (const size_t nPiece : task.m_Set.m_Order) {
        search.m_Polygons.push_back(PolygonOf(task.m_Set.m_Sources[nPiece]));
    }
    search.m_Area = AreaOf(task.m_Set);
    const CSilence silence(task.m_Options.m_bQuiet);
    CDropProgress progress(search, task.m_Stop, task.m_Watch);
    g_MutationProbability = options.m_fMutation;
    search.m_Packing =
        RunGeneticSearch(search.m_Polygons, search.m_Strip, {options.m_nPopulation, options.m_nGenerations},
                         task.m_nSeed, search.m_State, progress);
    search.m_Seconds = progress.Seconds();
    if (task.m_Stop) {
        SayWhenItWasStopped(search, options.m_nGenerations);
    }
}

void PrintResult(const SPackTask& task, const SDropSearch& search) {
    const CNumericLocale numericLocale;
    const auto height = static_cast<double>(search.m_Packing->m_fHeight);
    std::printf("Seed: %u\n", task.m_nSeed);
    if (!IsFinite(*search.m_Packing)) {
        return;
    }
    std::printf("Best height: %f\n", height);
    std::printf("Pieces: %zu\n", search.m_Packing->m_Placed.size());
    const double density = height > 0.0 ? search.m_Area / (search.m_Strip.m_fWidth * height) : 0.0;
    std::printf("Density: %s %%\n", Decimals(100.0 * density, 2).c_str());
    std::printf("Seconds: %s\n", Decimals(search.m_Seconds, 2).c_str());
    std::printf("Ended: %s\n", task.m_Stop ? "stopped by a signal" : "all generations are bred");
    if (!task.m_Stop) {
        // Of a search that was stopped there is none: it ends between two placements.
        const std::string ends = " --seed " + std::to_string(task.m_nSeed);
        std::printf("Repeat with: %s\n", RepeatingCommand(task.m_Invocation, ends).c_str());
    }
}

}  // namespace

int RunDrop(const SPackTask& task) {
    SDropSearch search;
    Search(task, search);
    const std::string watchFault = task.m_Watch.Finish();
    if (!search.m_Packing) {
        return BATCH_FAILED;
    }
    PrintResult(task, search);
    if (!IsFinite(*search.m_Packing)) {
        Complain("the polygons are too large: their packing has no finite height");
        return BATCH_FAILED;
    }
    const SFreePacking onGrid = OnGrid(*search.m_Packing, task.m_Set);
    const SPackOutcome outcome{{task.m_Set.m_Pieces, task.m_Set.m_Drawn, onGrid, task.m_Set.m_Unit},
                               DrawPackingSvg(search.m_Polygons, *search.m_Packing),
                               WriteCsv(search.m_Improvements),
                               RecordOf(task, {search.m_Polygons, *search.m_Packing,
                                               std::max(search.m_nGeneration, 0), search.m_Seconds})};
    std::vector<std::string> faults = task.m_Outputs.Write(outcome);
    faults.insert(faults.end(), watchFault.empty() ? 0 : 1, watchFault);
    return IsFaulty(faults) ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace nestrix
