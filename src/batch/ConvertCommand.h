#pragma once

#include "batch/CommandLine.h"

namespace nestrix {

/// Writes the pieces of the inputs in another format.
/// @return the status to exit with.
[[nodiscard]] int RunConvertCommand(const SInvocation& invocation);

}  // namespace nestrix
