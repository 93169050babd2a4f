#include "batch/BatchRun.h"

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <optional>

#include "base/CNumericLocale.h"
#include "batch/CPictureFile.h"
#include "batch/CStopSignals.h"
#include "batch/PolygonInput.h"
#include "ga/GeneticSearch.h"

namespace nestrix {

namespace {

void Complain(const std::string& complaint) {
    std::fprintf(stderr, "nestrix-batch: %s\n", complaint.c_str());
}

/// Complains, if there is anything to complain about.
/// @return whether there is.
bool IsFaulty(const std::string& fault) {
    if (!fault.empty()) {
        Complain(fault);
    }
    return !fault.empty();
}

/// Counts the generations. The search goes on where nobody hears its lines: what was lost is said at the end.
class CBatchProgress final : public CSearchSink {
public:
    /// @param abandoned becomes true when the program is asked to end.
    explicit CBatchProgress(const CRelaxed<bool>& abandoned) : m_Abandoned(abandoned) {}

    void GenerationDone(int nGeneration) override { m_nGeneration = nGeneration; }
    [[nodiscard]] bool IsToStop() const override { return false; }
    [[nodiscard]] const CRelaxed<bool>* AbandonRequest() const override { return &m_Abandoned; }

    /// The last complete generation; −1 before the first.
    [[nodiscard]] int LastGeneration() const { return m_nGeneration; }

private:
    const CRelaxed<bool>& m_Abandoned;
    int m_nGeneration = -1;
};

/// Says what there is to say about the polygon files.
/// @return whether one of them is not sound.
bool IsFaulty(const SPolygonInput& input) {
    for (const std::string& warning : input.m_Warnings) {
        Complain("warning: " + warning);
    }
    std::for_each(input.m_Faults.begin(), input.m_Faults.end(), Complain);
    return !input.m_Faults.empty();
}

void SayWhenItWasStopped(int nGeneration, int nGenerations) {
    if (nGeneration < 0) {
        Complain("stopped within the first generation");
    } else {
        Complain("stopped after generation " + std::to_string(nGeneration) + " of " +
                 std::to_string(nGenerations));
    }
}

/// @return the best packing; nothing if there is none.
std::optional<SPacking> Search(const SBatchOptions& options, std::span<const CPolygon> polygons,
                               const SStrip& strip, unsigned int nSeed, CBatchProgress& progress) {
    CSearchState state;
    g_MutationProbability = options.m_fMutation;
    std::optional<SPacking> packing = RunGeneticSearch(
        polygons, strip, {options.m_nPopulation, options.m_nGenerations}, nSeed, state, progress);
    if (!packing) {
        Complain("stopped before there was a packing");
    } else if (IsMade(progress.AbandonRequest())) {
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

int RunBatch(const SBatchOptions& options) {
    const SStrip strip;
    const SPolygonInput input = ReadPolygonInput(options.m_Paths, strip.m_fWidth);
    if (IsFaulty(input)) {
        return BATCH_BAD_INPUT;
    }
    CPictureFile picture(options.m_SvgPath);
    if (const std::string replaced = picture.FindReplaced(input.m_Files); !replaced.empty()) {
        Complain("the picture would take the place of " + replaced);
        return BATCH_BAD_INPUT;
    }
    if (IsFaulty(picture.Fault())) {
        return BATCH_FAILED;
    }

    // Until here signals end the program, since there is nothing to keep. From here on they are requests, and
    // remain so until the picture is written: a second Ctrl-C must not cost the result.
    CRelaxed<bool> bAbandoned = false;
    const CStopSignals signals(bAbandoned);
    const unsigned int nSeed = options.m_Seed.value_or(static_cast<unsigned int>(std::time(nullptr)));
    CBatchProgress progress(bAbandoned);
    const std::optional<SPacking> packing = Search(options, input.m_Polygons, strip, nSeed, progress);
    if (!packing) {
        return BATCH_FAILED;
    }
    PrintResult(nSeed, *packing);
    if (!IsFinite(*packing)) {
        Complain("the polygons are too large: their packing has no finite height");
        return BATCH_FAILED;
    }
    return IsFaulty(picture.Draw(input.m_Polygons, *packing)) ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace nestrix
