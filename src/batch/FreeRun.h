#pragma once

#include "batch/SPackTask.h"

namespace nestrix {

/// Packs the pieces freely, prints what came of it and how to repeat it, and writes the result. Pieces that
/// cannot be packed are named on standard error, as is whatever goes wrong.
/// @return the status to exit with, but for the signal that may have ended the search.
[[nodiscard]] int RunFree(const SPackTask& task);

}  // namespace nestrix
