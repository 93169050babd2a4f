#pragma once

#include <optional>
#include <span>
#include <vector>

#include "batch/FreeOptions.h"
#include "batch/SInputSet.h"

namespace nestrix {

/// Why pieces cannot be packed, as findings about their files.
/// @param drawn the pieces of the set.
[[nodiscard]] std::vector<SFinding> FindingsOf(std::span<const SUnfitPiece> unfit,
                                               std::span<const SDrawnPiece> drawn);

/// What keeps pieces from being packed at all, in the order of files and lines.
/// @param strip absent: nothing is asked of their widths.
[[nodiscard]] std::vector<SFinding> FindFaults(const SInputSet& set, const SFreeOptions& demands,
                                               const std::optional<SFreeStrip>& strip);

/// All that is wrong or odd about a set, whichever way it is to be packed, in the order of files and lines.
/// @param demands what the pieces must fit, and how they may lie.
[[nodiscard]] std::vector<SFinding> FindAll(const SInputSet& set, const SFreeOptions& demands);

}  // namespace nestrix
