#include "batch/FreeOptions.h"

#include <algorithm>
#include <limits>
#include <thread>

#include "batch/COptionGroup.h"

namespace nestrix {

namespace {

constexpr double DEFAULT_SECONDS = 60.0;
constexpr int MOST_THREADS = 1024;

void AddLimits(const COptionGroup& group, SPackLimits& limits) {
    group.Add("--time", "TIME", limits.m_Seconds, TIME,
              "how long to search: 500ms, 2m (60s, if nothing else ends it)");
    group.AddWholeNumber("--steps", "N", limits.m_nSteps, 0, std::numeric_limits<uint64_t>::max(),
                         "how many steps to search; repeats a search exactly");
    group.Add("--target-height", "H", limits.m_TargetHeight, POSITIVE, "end at this height or below it");
    group.Add("--target-density", "D", limits.m_TargetDensity, PERCENT,
              "end at this density or above it, such as 85%");
    group.Add("--patience", "TIME", limits.m_Patience, TIME, "end when nothing better was found for so long");
}

}  // namespace

void AddStripOptions(CLI::App& app, SFreeOptions& options, char const* pGroup) {
    const COptionGroup group(app, pGroup);
    group.Add("--width", "W", options.m_Strip.m_Width, WIDTH, "width of the strip (400)");
    group.Add("--margin", "M", options.m_Strip.m_Margin, DISTANCE,
              "least distance to the walls and to the floor (0)");
    group.Add("--turns", "LIST", options.m_Turns, TURNS,
              "degrees by which pieces may be turned, such as\n0,90,180,270, or \"any\" (0: as drawn, with "
              "the grain)");
    group.AddFlag("--mirror", options.m_bMirror, "pieces may be laid with their backs up");
}

void AddFreeOptions(CLI::App& app, SFreeOptions& options, char const* pGroup) {
    AddStripOptions(app, options, pGroup);
    const COptionGroup group(app, pGroup);
    group.Add("--spacing", "S", options.m_Strip.m_Spacing, DISTANCE, "least distance between two pieces (0)");
    group.AddFlag("--keep-holes-empty", options.m_bKeepHolesEmpty, "no piece may lie in a hole of another");
    AddLimits(group, options.m_Limits);
    group.AddWholeNumber("--threads", "N", options.m_nThreads, 1, MOST_THREADS,
                         "how many threads search (as many as the machine runs)");
}

SPackLimits LimitsOf(const SFreeOptions& options) {
    SPackLimits limits = options.m_Limits;
    if (!limits.m_Seconds && !limits.m_nSteps && !limits.m_TargetHeight && !limits.m_TargetDensity &&
        !limits.m_Patience) {
        limits.m_Seconds = DEFAULT_SECONDS;
    }
    return limits;
}

int ThreadsOf(const SFreeOptions& options) {
    const auto nRunning = static_cast<int>(std::thread::hardware_concurrency());  // 0 where it is unknown
    return options.m_nThreads.value_or(std::clamp(nRunning, 1, MOST_THREADS));
}

SFreeStrip StripOf(const SFreeOptions& options, const SStripDemand& ofInputs) {
    const SStripDemand& asked = options.m_Strip;
    const SFreeStrip byDefault;
    return {asked.m_Width.value_or(ofInputs.m_Width.value_or(byDefault.m_Width)),
            asked.m_Spacing.value_or(ofInputs.m_Spacing.value_or(byDefault.m_Spacing)),
            asked.m_Margin.value_or(ofInputs.m_Margin.value_or(byDefault.m_Margin))};
}

std::vector<SPiece> WithDemands(std::vector<SPiece> pieces, const SFreeOptions& options) {
    for (SPiece& piece : pieces) {
        piece.m_Turns = options.m_Turns.value_or(piece.m_Turns);
        piece.m_bMirrored = options.m_bMirror || piece.m_bMirrored;
    }
    return pieces;
}

}  // namespace nestrix
