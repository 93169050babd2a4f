#include "BatchRun.h"

#include <cmath>
#include <cstdio>
#include <ctime>

#include "CContainer.h"
#include "NumericLocale.h"
#include "PackingSvg.h"
#include "PolygonPaths.h"
#include "StopSignals.h"
#include "WholeFile.h"

namespace {

void Complain(const std::string& complaint) {
    std::fprintf(stderr, "nestrix-batch: %s\n", complaint.c_str());
}

/// Carries a stop signal over into the search, and ends it when nobody can read its lines any more.
class CBatchProgress final : public CGenerationSink {
public:
    CBatchProgress(CContainer& container, const CStopSignals& signals)
        : m_Container(container), m_Signals(signals) {}

    void GenerationDone(int nGeneration) override {
        m_nGeneration = nGeneration;
        if (m_Signals.WasRequested() || std::ferror(stdout) != 0) {
            m_Container.m_bStop = true;
        }
    }

    [[nodiscard]] int LastGeneration() const { return m_nGeneration; }

private:
    CContainer& m_Container;
    const CStopSignals& m_Signals;
    int m_nGeneration = 0;
};

bool LoadPolygons(const SBatchOptions& options, CContainer& container) {
    SPolygonPaths found = FindPolygonFiles(options.m_Paths);
    if (found.m_Faults.empty()) {
        for (const std::string& file : found.m_Files) {
            if (!container.AddPolygon(file.c_str())) {
                found.m_Faults.push_back(file + ": it went away while it was read");
            }
        }
    }
    for (const std::string& fault : found.m_Faults) {
        Complain(fault);
    }
    return found.m_Faults.empty();
}

void Search(const SBatchOptions& options, unsigned int nSeed, const CStopSignals& signals,
            CContainer& container) {
    CBatchProgress progress(container, signals);
    g_MutationProbability = options.m_fMutation;
    container.RunSearch(options.m_nPopulation, options.m_nGenerations, nSeed, progress);
    if (signals.WasRequested()) {
        Complain("stopped after generation " + std::to_string(progress.LastGeneration()) + " of " +
                 std::to_string(options.m_nGenerations));
    }
}

void PrintResult(unsigned int nSeed, float fHeight) {
    const CNumericLocale numericLocale;
    std::printf("Seed: %u\n", nSeed);
    if (std::isfinite(fHeight)) {
        std::printf("Best height: %f\n", static_cast<double>(fHeight));
    }
}

std::string WriteFault(const std::string& path, const std::string& reason) {
    return reason.empty() ? "" : "cannot write " + path + ": " + reason;
}

/// Why a picture could not be written, as far as that shows before the search. Empty without a fault.
std::string FindPictureFault(const std::string& path) {
    return path.empty() ? "" : WriteFault(path, FindOutputFault(path));
}

/// Draws the best packing, if a picture is wanted.
/// @return why it could not be drawn; empty on success.
std::string DrawResult(const CContainer& container, float fHeight, const std::string& path) {
    if (path.empty()) {
        return {};
    }
    std::vector<CPolygon> placed;
    (void)container.PlaceChromosome(container.m_BestChromosome, placed, nullptr);
    const std::string picture = DrawPackingSvg({placed, container.m_fContainerWidth, fHeight});
    if (picture.empty()) {
        return "the packing is too large to draw";
    }
    return WriteFault(path, WriteWholeFile(path, picture));
}

}  // namespace

int RunBatch(const SBatchOptions& options) {
    CContainer container;
    if (!LoadPolygons(options, container)) {
        return BATCH_BAD_INPUT;
    }
    if (const std::string fault = FindPictureFault(options.m_SvgPath); !fault.empty()) {
        Complain(fault);
        return BATCH_FAILED;
    }
    // Lives until the picture is written, so that a second Ctrl-C does not cost the result.
    const CStopSignals signals(container.m_bStop);
    const unsigned int nSeed = options.m_Seed.value_or(static_cast<unsigned int>(std::time(nullptr)));
    Search(options, nSeed, signals, container);

    const float fHeight = container.m_fTotalHeight - container.m_fBestFitness;
    PrintResult(nSeed, fHeight);
    if (!std::isfinite(fHeight)) {
        Complain("the polygons are too large: their packing has no finite height");
        return BATCH_FAILED;
    }
    if (const std::string fault = DrawResult(container, fHeight, options.m_SvgPath); !fault.empty()) {
        Complain(fault);
        return BATCH_FAILED;
    }
    return BATCH_DONE;
}
