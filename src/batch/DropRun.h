#pragma once

#include "batch/DropOptions.h"
#include "batch/SBatchJob.h"

namespace nestrix {

/// Searches for the drop order, prints the seed and the best height after the engine's lines, and draws the
/// best packing. Whatever goes wrong is said on standard error.
/// @return the status to exit with.
[[nodiscard]] int RunDrop(const SDropOptions& options, const SBatchJob& job);

}  // namespace nestrix
