#pragma once

#include <optional>
#include <string>
#include <vector>

namespace nestrix {

/// Exit statuses of the program.
inline constexpr int BATCH_DONE = 0;
inline constexpr int BATCH_FAILED = 1;     ///< the result could not be made, printed or written
inline constexpr int BATCH_BAD_INPUT = 2;  ///< the options or the polygon files are at fault

/// What the user asked for.
struct SBatchOptions {
    std::vector<std::string> m_Paths;  ///< polygon files, and folders of them
    int m_nPopulation = 200;
    int m_nGenerations = 500;
    float m_fMutation = 0.1F;            ///< the chance that a child is mutated, 0 .. 1
    std::optional<unsigned int> m_Seed;  ///< absent: seed with the clock
    std::string m_SvgPath;               ///< where to draw the best packing; empty: nowhere
};

/// Reads the command line.
/// @return the status to exit with at once, where the command line asks for help or is at fault; what there
///         is to say about it has then been said on standard output or standard error.
[[nodiscard]] std::optional<int> ParseBatchOptions(int argc, char const* const* argv, SBatchOptions& options);

}  // namespace nestrix
