#pragma once

#include "batch/CommandLine.h"

namespace nestrix {

/// Packs the pieces of the inputs: see the help of the command.
/// @return the status to exit with.
[[nodiscard]] int RunPackCommand(const SInvocation& invocation);

}  // namespace nestrix
