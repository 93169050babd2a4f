#pragma once

#include "batch/SPackTask.h"

namespace nestrix {

/// Searches for the drop order, prints the result after the engine's lines, and writes it. Whatever goes
/// wrong is said on standard error.
/// @return the status to exit with, but for the signal that may have ended the search.
[[nodiscard]] int RunDrop(const SPackTask& task);

}  // namespace nestrix
