#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "nest/PackFreely.h"

namespace nestrix {

/// Who searched.
struct SSearchers {
    uint64_t m_nSeed = 0;
    int m_nThreads = 1;           ///< of each process
    std::optional<int> m_nRanks;  ///< processes; absent where one searched by itself
};

/// What came of a search, a line for each figure.
/// @param result with a packing.
/// @param command that repeats it; empty if none does.
[[nodiscard]] std::string ReportOf(std::span<const SPiece> pieces, const SSearchers& searchers,
                                   const SPackResult& result, const std::string& command);

/// What ended a search, in words for a user.
[[nodiscard]] char const* InWords(EPackEnd eEnd);

}  // namespace nestrix
