#pragma once

#include <vector>

#include "nest/ConvexParts.h"
#include "nest/GridGeometry.h"

namespace nestrix::support {

/// The convex parts of a shape, as a field takes them.
[[nodiscard]] inline std::vector<CConvexPart> PartsOf(const SGridShape& shape) {
    return ConvexPartsOf(Cleaned(shape));
}

}  // namespace nestrix::support
