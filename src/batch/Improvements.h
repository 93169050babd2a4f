#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace nestrix {

/// A packing that was better than all before it, in numbers.
struct SImprovement {
    double m_Seconds = 0.0;  ///< since the search began
    uint64_t m_nStep = 0;    ///< a move of a piece; where pieces are dropped, a generation
    double m_Height = 0.0;
    double m_Density = 0.0;  ///< 0 to 1
};

/// A table with one line an improvement, for spreadsheets and plots.
[[nodiscard]] std::string WriteCsv(const std::vector<SImprovement>& improvements);

}  // namespace nestrix
