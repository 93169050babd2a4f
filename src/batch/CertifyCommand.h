#pragma once

#include "batch/CommandLine.h"

namespace nestrix {

/// Tells of packings whether they are valid, how high and how dense, and names what overlaps.
/// @return the status to exit with.
[[nodiscard]] int RunCertifyCommand(const SInvocation& invocation);

}  // namespace nestrix
