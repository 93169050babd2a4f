#include "batch/DropRun.h"

#include <cstdio>
#include <optional>

#include "base/CNumericLocale.h"
#include "batch/BatchOptions.h"
#include "batch/Complaints.h"
#include "formats/PackingSvg.h"
#include "ga/GeneticSearch.h"

namespace nestrix {

namespace {

/// Counts the generations. The search goes on where nobody hears its lines: what was lost is said at the end.
class CDropProgress final : public CSearchSink {
public:
    /// @param abandoned becomes true when the program is asked to end.
    explicit CDropProgress(const CRelaxed<bool>& abandoned) : m_Abandoned(abandoned) {}

    void GenerationDone(int nGeneration) override { m_nGeneration = nGeneration; }
    [[nodiscard]] bool IsToStop() const override { return false; }
    [[nodiscard]] const CRelaxed<bool>* AbandonRequest() const override { return &m_Abandoned; }

    /// The last complete generation; −1 before the first.
    [[nodiscard]] int LastGeneration() const { return m_nGeneration; }

private:
    const CRelaxed<bool>& m_Abandoned;
    int m_nGeneration = -1;
};

void SayWhenItWasStopped(int nGeneration, int nGenerations) {
    if (nGeneration < 0) {
        Complain("stopped within the first generation");
    } else {
        Complain("stopped after generation " + std::to_string(nGeneration) + " of " +
                 std::to_string(nGenerations));
    }
}

/// @return the best packing; nothing if there is none.
std::optional<SPacking> Search(const SDropOptions& options, const SBatchJob& job) {
    CSearchState state;
    CDropProgress progress(job.m_Stop);
    g_MutationProbability = options.m_fMutation;
    std::optional<SPacking> packing =
        RunGeneticSearch(job.m_Input.m_Polygons, SStrip(), {options.m_nPopulation, options.m_nGenerations},
                         job.m_nSeed, state, progress);
    if (!packing) {
        Complain("stopped before there was a packing");
    } else if (job.m_Stop) {
        SayWhenItWasStopped(progress.LastGeneration(), options.m_nGenerations);
    }
    return packing;
}

void PrintResult(unsigned int nSeed, const SPacking& packing) {
    const CNumericLocale numericLocale;
    std::printf("Seed: %u\n", nSeed);
    if (IsFinite(packing)) {
        std::printf("Best height: %f\n", static_cast<double>(packing.m_fHeight));
    }
}

}  // namespace

int RunDrop(const SDropOptions& options, const SBatchJob& job) {
    const std::optional<SPacking> packing = Search(options, job);
    if (!packing) {
        return BATCH_FAILED;
    }
    PrintResult(job.m_nSeed, *packing);
    if (!IsFinite(*packing)) {
        Complain("the polygons are too large: their packing has no finite height");
        return BATCH_FAILED;
    }
    if (!job.m_Picture.IsWanted()) {
        return BATCH_DONE;
    }
    const std::string picture = DrawPackingSvg(job.m_Input.m_Polygons, *packing);
    return IsFaulty(job.m_Picture.Write(picture)) ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace nestrix
