#include "batch/BatchRun.h"

#include <algorithm>
#include <ctime>
#include <optional>

#include "batch/CStopSignals.h"
#include "batch/Complaints.h"
#include "batch/DropRun.h"
#include "batch/FreeRun.h"
#include "batch/SBatchJob.h"
#include "packing/SStrip.h"

namespace nestrix {

namespace {

/// Says what there is to say about the polygon files.
/// @return whether one of them is not sound.
bool IsFaulty(const SPolygonInput& input) {
    for (const std::string& warning : input.m_Warnings) {
        Complain("warning: " + warning);
    }
    std::for_each(input.m_Faults.begin(), input.m_Faults.end(), Complain);
    return !input.m_Faults.empty();
}

}  // namespace

int RunBatch(const SBatchOptions& options) {
    const bool bDrop = options.m_eMethod == EMethod::DROP;
    const SPolygonInput input =
        ReadPolygonInput(options.m_Paths, bDrop ? std::optional(SStrip().m_fWidth) : std::nullopt);
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
    CRelaxed<bool> bStop = false;
    const CStopSignals signals(bStop);
    const unsigned int nSeed = options.m_Seed.value_or(static_cast<unsigned int>(std::time(nullptr)));
    const SBatchJob job{input, nSeed, bStop, picture};
    return bDrop ? RunDrop(options.m_Drop, job) : RunFree(options.m_Free, job);
}

}  // namespace nestrix
