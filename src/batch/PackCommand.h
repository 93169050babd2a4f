#pragma once

#include "batch/CommandLine.h"
#include "batch/SPacker.h"

namespace nestrix {

/// Packs the pieces of the inputs: see the help of the command.
/// @return the status to exit with.
[[nodiscard]] int RunPackCommand(const SInvocation& invocation);

/// The same with another one to search; several processes together search freely only, on one thread each
/// where no other number is asked for.
[[nodiscard]] int RunPackCommand(const SInvocation& invocation, const SPacker& packer);

}  // namespace nestrix
