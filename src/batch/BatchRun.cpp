#include "BatchRun.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <ctime>

#include "CContainer.h"
#include "CPictureFile.h"
#include "CStopSignals.h"
#include "NumericLocale.h"
#include "PolygonInput.h"

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

/// Counts the generations, and ends a search of whose result nobody could hear.
class CBatchProgress final : public CGenerationSink {
public:
    CBatchProgress(CContainer& container, bool bPicture) : m_Container(container), m_bPicture(bPicture) {}

    void GenerationDone(int nGeneration) override {
        m_nGeneration = nGeneration;
        if (!m_bPicture && std::ferror(stdout) != 0) {
            m_Container.m_bStop = true;
        }
    }

    /// The last complete generation; −1 before the first.
    [[nodiscard]] int LastGeneration() const { return m_nGeneration; }

private:
    CContainer& m_Container;
    bool m_bPicture;
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

/// @return false if there is no packing.
bool Search(const SBatchOptions& options, unsigned int nSeed, bool bPicture, CContainer& container) {
    CBatchProgress progress(container, bPicture);
    g_MutationProbability = options.m_fMutation;
    container.RunSearch(options.m_nPopulation, options.m_nGenerations, nSeed, progress);
    if (container.m_bAbandoned) {
        if (container.m_BestChromosome.m_nGenes == 0) {
            Complain("stopped before there was a packing");
            return false;
        }
        SayWhenItWasStopped(progress.LastGeneration(), options.m_nGenerations);
    }
    return true;
}

void PrintResult(unsigned int nSeed, float fHeight) {
    const CNumericLocale numericLocale;
    std::printf("Seed: %u\n", nSeed);
    if (std::isfinite(fHeight)) {
        std::printf("Best height: %f\n", static_cast<double>(fHeight));
    }
}

}  // namespace

int RunBatch(const SBatchOptions& options) {
    CContainer container;
    SPolygonInput input = ReadPolygonInput(options.m_Paths, container.m_fContainerWidth);
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
    container.m_Polygons = std::move(input.m_Polygons);

    // Until here signals end the program, since there is nothing to keep. From here on they are requests, and
    // remain so until the picture is written: a second Ctrl-C must not cost the result.
    const CStopSignals signals(container.m_bAbandoned);
    const unsigned int nSeed = options.m_Seed.value_or(static_cast<unsigned int>(std::time(nullptr)));
    if (!Search(options, nSeed, picture.IsWanted(), container)) {
        return BATCH_FAILED;
    }
    const float fHeight = container.m_fTotalHeight - container.m_fBestFitness;
    PrintResult(nSeed, fHeight);
    if (!std::isfinite(fHeight)) {
        Complain("the polygons are too large: their packing has no finite height");
        return BATCH_FAILED;
    }
    return IsFaulty(picture.Draw(container, fHeight)) ? BATCH_FAILED : BATCH_DONE;
}
