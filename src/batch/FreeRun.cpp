#include "batch/FreeRun.h"

#include <cstdio>

#include "batch/BatchOptions.h"
#include "batch/CFreeProgress.h"
#include "batch/CProgressLine.h"
#include "batch/Complaints.h"
#include "batch/FreePieces.h"
#include "batch/FreeReport.h"
#include "formats/FreePackingSvg.h"

namespace nestrix {

namespace {

SPackResult Search(std::span<const SPiece> pieces, const SFreeOptions& options, const SBatchJob& job) {
    SPackSettings settings;
    settings.m_nSeed = job.m_nSeed;
    settings.m_nThreads = ThreadsOf(options);
    settings.m_bUseHoles = !options.m_bKeepHolesEmpty;
    settings.m_Limits = LimitsOf(options);
    CFreeProgress progress(job.m_Stop);
    const CProgressLine line(progress, stderr);
    return PackFreely(pieces, options.m_Strip, settings, progress);
}

}  // namespace

int RunFree(const SFreeOptions& options, const SBatchJob& job) {
    const SFreePieces pieces = FreePiecesOf(job.m_Input, options);
    const SPackResult result = Search(pieces.m_Pieces, options, job);
    for (const SUnfitPiece& unfit : result.m_Unfit) {
        Complain(pieces.m_Files[static_cast<size_t>(unfit.m_nPiece)] + ": " + unfit.m_Reason);
    }
    if (!result.m_Packing) {
        return BATCH_BAD_INPUT;
    }
    std::fputs(ReportOf(pieces.m_Pieces, options, job.m_nSeed, result).c_str(), stdout);
    if (!job.m_Picture.IsWanted()) {
        return BATCH_DONE;
    }
    const std::string picture = DrawFreePackingSvg(pieces.m_Pieces, *result.m_Packing);
    return IsFaulty(job.m_Picture.Write(picture)) ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace nestrix
