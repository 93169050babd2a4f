#pragma once

#include "batch/CommandLine.h"

namespace nestrix {

/// Tells what is wrong or odd about the pieces of the inputs, one "file:line: message" a line.
/// @return the status to exit with.
[[nodiscard]] int RunCheckCommand(const SInvocation& invocation);

}  // namespace nestrix
