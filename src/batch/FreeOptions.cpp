#include "batch/FreeOptions.h"

#include <algorithm>
#include <limits>
#include <thread>

#include "base/NumberText.h"
#include "batch/OptionValues.h"

namespace nestrix {

namespace {

constexpr double DEFAULT_SECONDS = 60.0;
constexpr int MOST_THREADS = 1024;

std::string InWords(const STurns& turns) {
    if (turns.m_bAny) {
        return "any";
    }
    std::string list;
    for (const double degrees : turns.m_Degrees) {
        list.append(list.empty() ? "" : ",").append(ShortestDigits(degrees));
    }
    return list;
}

void AddDemands(CLI::App& app, SFreeOptions& options, char const* pGroup) {
    AddOption(app, "--width", options.m_Strip.m_Width, WIDTH, "width of the strip (400)")
        ->type_name("W")
        ->group(pGroup);
    AddOption(app, "--spacing", options.m_Strip.m_Spacing, DISTANCE, "least distance between two pieces (0)")
        ->type_name("S")
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
    app.add_flag("--keep-holes-empty", options.m_bKeepHolesEmpty, "no piece may lie in a hole of another")
        ->group(pGroup);
}

void AddLimits(CLI::App& app, SPackLimits& limits, char const* pGroup) {
    AddOption(app, "--time", limits.m_Seconds, TIME,
              "how long to search: 60s, 500ms, 2m, or seconds\n(60s, if no other end is given)")
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

void AddFreeOptions(CLI::App& app, SFreeOptions& options, char const* pGroup) {
    AddDemands(app, options, pGroup);
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

std::string RepeatingOptions(const SFreeOptions& options, uint64_t nSeed, uint64_t nSteps) {
    const SFreeOptions defaults;
    std::string text;
    const auto addNumber = [&text](char const* pName, double number, double byDefault) {
        if (number != byDefault) {
            text.append(pName).append(ShortestDigits(number));
        }
    };
    addNumber(" --width ", options.m_Strip.m_Width, defaults.m_Strip.m_Width);
    addNumber(" --spacing ", options.m_Strip.m_Spacing, defaults.m_Strip.m_Spacing);
    addNumber(" --margin ", options.m_Strip.m_Margin, defaults.m_Strip.m_Margin);
    if (options.m_Turns.m_bAny || options.m_Turns.m_Degrees != defaults.m_Turns.m_Degrees) {
        text.append(" --turns ").append(InWords(options.m_Turns));
    }
    text.append(options.m_bMirror ? " --mirror" : "");
    text.append(options.m_bKeepHolesEmpty ? " --keep-holes-empty" : "");
    text.append(" --seed ").append(std::to_string(nSeed));
    text.append(" --threads ").append(std::to_string(ThreadsOf(options)));
    text.append(" --steps ").append(std::to_string(nSteps));
    return text.substr(1);
}

}  // namespace nestrix
