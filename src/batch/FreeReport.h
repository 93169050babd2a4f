#pragma once

#include <span>
#include <string>

#include "nest/PackFreely.h"

namespace nestrix {

/// What came of a search, a line for each figure.
/// @param result with a packing.
/// @param command that repeats it.
[[nodiscard]] std::string ReportOf(std::span<const SPiece> pieces, uint64_t nSeed, int nThreads,
                                   const SPackResult& result, const std::string& command);

/// What ended a search, in words for a user.
[[nodiscard]] char const* InWords(EPackEnd eEnd);

}  // namespace nestrix
