#include "batch/FreeOptions.h"

#include <algorithm>
#include <limits>
#include <thread>

#include "batch/OptionValues.h"

namespace nestrix {

namespace {

constexpr double DEFAULT_SECONDS = 60.0;
constexpr int MOST_THREADS = 1024;

void AddLimits(CLI::App& app, SPackLimits& limits, char const* pGroup) {
    AddOption(app, "--time", limits.m_Seconds, TIME,
              "how long to search: 500ms, 2m (60s, if nothing else ends it)")
        ->type_name("TIME")
        ->group(pGroup);
    app.add_option("--steps", limits.m_nSteps, "how many steps to search; repeats a search exactly")
        ->transform(WholeNumber(0, std::numeric_limits<uint64_t>::max()))
        ->type_name("N")
        ->group(pGroup);
    AddOption(app, "--target-height", limits.m_TargetHeight, POSITIVE, "end at this height or below it")
        ->type_name("H")
        ->group(pGroup);
    AddOption(app, "--target-density", limits.m_TargetDensity, PERCENT,
              "end at this density or above it, such as 85%")
        ->type_name("D")
        ->group(pGroup);
    AddOption(app, "--patience", limits.m_Patience, TIME, "end when nothing better was found for so long")
        ->type_name("TIME")
        ->group(pGroup);
}

}  // namespace

void AddStripOptions(CLI::App& app, SFreeOptions& options, char const* pGroup) {
    AddOption(app, "--width", options.m_Strip.m_Width, WIDTH, "width of the strip (400)")
        ->type_name("W")
        ->group(pGroup);
    AddOption(app, "--margin", options.m_Strip.m_Margin, DISTANCE,
              "least distance to the walls and to the floor (0)")
        ->type_name("M")
        ->group(pGroup);
    AddOption(app, "--turns", options.m_Turns, TURNS,
              "degrees by which pieces may be turned, such as\n0,90,180,270, or \"any\" (0: as drawn, with "
              "the grain)")
        ->type_name("LIST")
        ->group(pGroup);
    app.add_flag("--mirror", options.m_bMirror, "pieces may be laid with their backs up")->group(pGroup);
}

void AddFreeOptions(CLI::App& app, SFreeOptions& options, char const* pGroup) {
    AddStripOptions(app, options, pGroup);
    AddOption(app, "--spacing", options.m_Strip.m_Spacing, DISTANCE, "least distance between two pieces (0)")
        ->type_name("S")
        ->group(pGroup);
    app.add_flag("--keep-holes-empty", options.m_bKeepHolesEmpty, "no piece may lie in a hole of another")
        ->group(pGroup);
    AddLimits(app, options.m_Limits, pGroup);
    app.add_option("--threads", options.m_nThreads, "how many threads search (as many as the machine runs)")
        ->transform(WholeNumber(1, MOST_THREADS))
        ->type_name("N")
        ->group(pGroup);
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
