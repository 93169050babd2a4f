#pragma once

#include "batch/CommandLine.h"

namespace nestrix {

/// Certifies packings of one job, tells them by height, and writes the best.
/// @return the status to exit with.
[[nodiscard]] int RunBestCommand(const SInvocation& invocation);

}  // namespace nestrix
