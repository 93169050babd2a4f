#pragma once

#include <optional>
#include <vector>

#include "batch/InputFile.h"
#include "nest/PackFreely.h"

namespace CLI {
class App;
}

namespace nestrix {

/// What the user asked of free packing. What is absent is as the inputs say, and by default where they say
/// nothing. The limits are those that were given: see LimitsOf.
struct SFreeOptions {
    SStripDemand m_Strip;
    std::optional<STurns> m_Turns;
    bool m_bMirror = false;  ///< all pieces may be mirrored, not only those of which the inputs say so
    bool m_bKeepHolesEmpty = false;
    SPackLimits m_Limits;
    std::optional<int> m_nThreads;  ///< absent: as many as the machine runs at once
};

/// Adds the options that say what each piece must fit, and how it may lie.
void AddStripOptions(CLI::App& app, SFreeOptions& options, char const* pGroup);

/// Adds the options that only free packing has, in their own group of the help.
void AddFreeOptions(CLI::App& app, SFreeOptions& options, char const* pGroup);

/// The limits that the search is to have: a minute, if none was given.
[[nodiscard]] SPackLimits LimitsOf(const SFreeOptions& options);

[[nodiscard]] int ThreadsOf(const SFreeOptions& options);

/// The strip as the options ask for, or else the inputs.
[[nodiscard]] SFreeStrip StripOf(const SFreeOptions& options, const SStripDemand& ofInputs);

/// Turns and mirroring as the options demand them, or else each piece's own.
[[nodiscard]] std::vector<SPiece> WithDemands(std::vector<SPiece> pieces, const SFreeOptions& options);

}  // namespace nestrix
