#include "batch/FreeRun.h"

#include <cstdio>

#include "batch/CFreeProgress.h"
#include "batch/CProgressLine.h"
#include "batch/CUpdater.h"
#include "batch/Complaints.h"
#include "batch/ExitStatus.h"
#include "batch/Findings.h"
#include "batch/FreeReport.h"
#include "batch/Improvements.h"
#include "batch/ResultRecord.h"
#include "batch/StartPacking.h"
#include "formats/FreePackingSvg.h"
#include "formats/svg/SvgPlan.h"

namespace nestrix {

namespace {

/// Pieces as nothing may lie in them.
std::vector<SPiece> Closed(std::vector<SPiece> pieces) {
    for (SPiece& piece : pieces) {
        piece.m_Shape.m_Holes.clear();
    }
    return pieces;
}

SFreePacking StartOf(const SPackTask& task, const std::vector<SPiece>& pieces, const SFreeStrip& strip) {
    const SFreePacking& packing = task.m_pFrom->m_Packing;
    SFreePacking start = StartFrom(task.m_pFrom->m_Pieces, packing, pieces, strip);
    const bool bKeepHolesEmpty = task.m_Options.m_Free.m_bKeepHolesEmpty;
    for (const std::string& loss : FindLosses(packing, bKeepHolesEmpty ? Closed(pieces) : pieces, start)) {
        Complain({task.m_Options.m_FromFile, 0, SFinding::ESeverity::ODD, loss});
    }
    return start;
}

SPackResult Search(const SPackTask& task, const std::vector<SPiece>& pieces, CFreeProgress& progress) {
    const SFreeOptions& options = task.m_Options.m_Free;
    const SFreeStrip strip = StripOf(options, task.m_Set.m_Strip);
    std::optional<SFreePacking> start;
    if (task.m_pFrom != nullptr) {
        start = StartOf(task, pieces, strip);
    }
    SPackSettings settings;
    settings.m_nSeed = task.m_nSeed;
    settings.m_nThreads = ThreadsOf(options);
    settings.m_bUseHoles = !options.m_bKeepHolesEmpty;
    settings.m_Limits = LimitsOf(options);
    settings.m_pStart = start ? &*start : nullptr;
    std::optional<CProgressLine> line;
    if (!task.m_Options.m_bQuiet) {
        line.emplace(progress, stderr);
    }
    return task.m_Packer.m_Search(pieces, strip, settings, progress);
}

SCutPlan PlanOf(const SPackTask& task, const std::vector<SPiece>& pieces, const SFreePacking& packing) {
    return {pieces, task.m_Set.m_Drawn, packing, task.m_Set.m_Unit};
}

void WriteEarly(const SPackTask& task, const std::vector<SPiece>& pieces, const SFreePacking& packing,
                const SPackProgress& progress) {
    task.m_Outputs.WriteEarly(
        {PlanOf(task, pieces, packing), {}, {}, RecordSoFar(task, pieces, packing, progress)});
}

/// The command that repeats the search to the last digit, however long it took; empty if none does.
std::string CommandFor(const SPackTask& task, const SPackResult& result) {
    if (task.m_Packer.m_nRanks) {
        return {};  // it depends on when each of them heard of the others
    }
    return RepeatingCommand(task.m_Invocation, " --seed " + std::to_string(task.m_nSeed) + " --threads " +
                                                   std::to_string(ThreadsOf(task.m_Options.m_Free)) +
                                                   " --steps " + std::to_string(result.m_nSteps));
}

}  // namespace

int RunFree(const SPackTask& task) {
    const std::vector<SPiece> pieces = WithDemands(task.m_Set.m_Pieces, task.m_Options.m_Free);
    std::optional<CUpdater> early;
    if (task.m_Packer.m_nRanks) {
        early.emplace();  // who started them may end all by force before the result is written
    }
    CFreeProgress progress(task.m_Stop, [&](const SFreePacking& packing, const SPackProgress& at) {
        task.m_Watch.Offer([&pieces, packing] { return DrawFreePackingSvg(pieces, packing); });
        if (early) {
            early->Offer([&task, &pieces, packing, at] { WriteEarly(task, pieces, packing, at); });
        }
    });
    const SPackResult result = Search(task, pieces, progress);
    early.reset();
    const std::string watchFault = task.m_Watch.Finish();
    for (const SFinding& finding : FindingsOf(result.m_Unfit, task.m_Set.m_Drawn)) {
        Complain(finding);
    }
    if (!result.m_Packing) {
        return BATCH_BAD_INPUT;
    }
    const SSearchers searchers{task.m_nSeed, ThreadsOf(task.m_Options.m_Free), task.m_Packer.m_nRanks};
    std::fputs(ReportOf(pieces, searchers, result, CommandFor(task, result)).c_str(), stdout);
    const SCutPlan plan = PlanOf(task, pieces, *result.m_Packing);
    const SPackOutcome outcome{plan, WriteSvgPlan(plan), WriteCsv(progress.Improvements()),
                               RecordOf(task, pieces, result)};
    std::vector<std::string> faults = task.m_Outputs.Write(outcome);
    faults.insert(faults.end(), watchFault.empty() ? 0 : 1, watchFault);
    return IsFaulty(faults) ? BATCH_FAILED : BATCH_DONE;
}

}  // namespace nestrix
