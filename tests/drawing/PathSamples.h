#pragma once

#include <vector>

#include "drawing/SPath.h"

namespace nestrix::support {

/// Points of a path, in its order and from end to end, so many for each stretch besides its start.
[[nodiscard]] std::vector<SPoint> SamplesOf(const SPath& path, int nPerStretch);

}  // namespace nestrix::support
