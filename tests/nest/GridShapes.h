#pragma once

#include <string>

#include "nest/ForbiddenRegion.h"
#include "packing/SGrid.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

/// The shape in words for a test's output.
[[nodiscard]] std::string Text(const SGridShape& shape);

[[nodiscard]] SGridShape Moved(SGridShape shape, SGridPoint by);
[[nodiscard]] SGridShape Scaled(SGridShape shape, int64_t nFactor);

/// A rectangle whose lower left corner is at the point.
[[nodiscard]] CGridRing GridRectangle(SGridPoint at, int64_t nWidth, int64_t nHeight);

/// A sound shape on a small square grid, often with a hole or two; it may touch itself, have seams, spikes
/// and points in the middle of a straight line.
/// @param nVerticesMost at least 3: of the outline.
[[nodiscard]] SGridShape RandomSoundShape(CSeededRandom& random, int nVerticesMost);

/// The convex parts of a shape, as a field takes them.
[[nodiscard]] std::vector<CConvexPart> PartsOf(const SGridShape& shape);

}  // namespace nestrix::support
