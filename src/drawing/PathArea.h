#pragma once

#include "drawing/SPath.h"

namespace nestrix {

/// The area that a path encloses with the straight line from its end to its start, curves and all; positive
/// where it runs counter-clockwise.
[[nodiscard]] double SignedArea(const SPath& path);

}  // namespace nestrix
