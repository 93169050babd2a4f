#pragma once

#include <span>
#include <string>

#include "batch/FreeOptions.h"

namespace nestrix {

/// What came of a search, a line for each figure, and the options that repeat it.
/// @param result with a packing.
[[nodiscard]] std::string ReportOf(std::span<const SPiece> pieces, const SFreeOptions& options,
                                   uint64_t nSeed, const SPackResult& result);

}  // namespace nestrix
