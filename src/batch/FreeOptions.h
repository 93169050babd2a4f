#pragma once

#include <optional>
#include <string>

#include "nest/PackFreely.h"

namespace CLI {
class App;
}

namespace nestrix {

/// What the user asked of free packing. The limits are those that were given: see LimitsOf.
struct SFreeOptions {
    SFreeStrip m_Strip;
    STurns m_Turns;
    bool m_bMirror = false;
    bool m_bKeepHolesEmpty = false;
    SPackLimits m_Limits;
    std::optional<int> m_nThreads;  ///< absent: as many as the machine runs at once
};

/// Adds the options that only free packing has, in their own group of the help.
void AddFreeOptions(CLI::App& app, SFreeOptions& options, char const* pGroup);

/// The limits that the search is to have: a minute, if none was given.
[[nodiscard]] SPackLimits LimitsOf(const SFreeOptions& options);

[[nodiscard]] int ThreadsOf(const SFreeOptions& options);

/// The options that repeat a search on the same pieces: what they demand as far as it is not the default, and
/// the work as a number of steps.
[[nodiscard]] std::string RepeatingOptions(const SFreeOptions& options, uint64_t nSeed, uint64_t nSteps);

}  // namespace nestrix
