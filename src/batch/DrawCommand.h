#pragma once

#include "batch/CommandLine.h"

namespace nestrix {

/// Draws pieces with their profiles, or a packing, as SVG or PNG.
/// @return the status to exit with.
[[nodiscard]] int RunDrawCommand(const SInvocation& invocation);

}  // namespace nestrix
