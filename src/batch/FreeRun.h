#pragma once

#include "batch/FreeOptions.h"
#include "batch/SBatchJob.h"

namespace nestrix {

/// Packs the pieces freely, prints what came of it and how to repeat it, and draws the best packing. Pieces
/// that cannot be packed are named on standard error, as is whatever goes wrong.
/// @return the status to exit with.
[[nodiscard]] int RunFree(const SFreeOptions& options, const SBatchJob& job);

}  // namespace nestrix
