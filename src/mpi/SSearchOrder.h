#pragma once

#include <optional>
#include <span>
#include <vector>

#include "mpi/Words.h"
#include "nest/PackFreely.h"

namespace nestrix {

/// All that a rank has to know to search: only the first one reads files.
struct SSearchOrder {
    std::vector<SPiece> m_Pieces;  ///< their names are not told
    SFreeStrip m_Strip;
    SPackSettings m_Settings;             ///< of all ranks together; without a start
    std::optional<SFreePacking> m_Start;  ///< an earlier packing to begin with, on the strip's grid
};

[[nodiscard]] CWords WordsOf(const SSearchOrder& order);
[[nodiscard]] SSearchOrder ReadOrder(const CWords& words);

}  // namespace nestrix
