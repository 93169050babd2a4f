#pragma once

#include "nest/CPackProblem.h"

namespace nestrix {

/// Whether one version can be moved onto the other, but for what rounding does.
[[nodiscard]] bool LookTheSame(const SVersion& a, const SVersion& b);

}  // namespace nestrix
