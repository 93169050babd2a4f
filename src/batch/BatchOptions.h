#pragma once

#include <optional>
#include <string>
#include <vector>

#include "batch/DropOptions.h"
#include "batch/FreeOptions.h"

namespace nestrix {

/// Exit statuses of the program.
inline constexpr int BATCH_DONE = 0;
inline constexpr int BATCH_FAILED = 1;     ///< the result could not be made, printed or written
inline constexpr int BATCH_BAD_INPUT = 2;  ///< the options or the polygon files are at fault

/// The two ways of packing.
enum class EMethod {
    FREE,  ///< pieces anywhere in the strip, without overlap
    DROP   ///< the window's search: pieces dropped one after another
};

/// What the user asked for.
struct SBatchOptions {
    std::vector<std::string> m_Paths;  ///< polygon files, and folders of them
    EMethod m_eMethod = EMethod::FREE;
    std::optional<unsigned int> m_Seed;  ///< absent: seed with the clock
    std::string m_SvgPath;               ///< where to draw the best packing; empty: nowhere
    SFreeOptions m_Free;
    SDropOptions m_Drop;
};

/// Reads the command line.
/// @return the status to exit with at once, where the command line asks for help or is at fault; what there
///         is to say about it has then been said on standard output or standard error.
[[nodiscard]] std::optional<int> ParseBatchOptions(int argc, char const* const* argv, SBatchOptions& options);

}  // namespace nestrix
