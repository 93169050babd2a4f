#pragma once

#include "batch/BatchOptions.h"

namespace nestrix {

/// The whole job: checks the polygon files, packs them by the method asked for, prints the result and draws
/// the best packing. Whatever goes wrong is said on standard error.
/// @return the status to exit with.
[[nodiscard]] int RunBatch(const SBatchOptions& options);

}  // namespace nestrix
