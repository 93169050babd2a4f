#pragma once

#include <cstdint>
#include <string>

#include "packing/SGrid.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

/// The shape in words for a test's output.
[[nodiscard]] std::string Text(const SGridShape& shape);

[[nodiscard]] SGridShape Moved(SGridShape shape, SGridPoint by);
[[nodiscard]] SGridShape Scaled(SGridShape shape, int64_t nFactor);

/// A rectangle whose lower left corner is at the point.
[[nodiscard]] CGridRing GridRectangle(SGridPoint at, int64_t nWidth, int64_t nHeight);

/// A ring of nVertices points on a small square grid, joined at random: most cross themselves.
[[nodiscard]] CGridRing RandomRing(CSeededRandom& random, int nVertices, int nSide);

/// Random rings on a small square grid, often with a hole or two: few such shapes are sound.
/// @param nVerticesMost at least 3: of the outline.
[[nodiscard]] SGridShape RandomShape(CSeededRandom& random, int nVerticesMost);

/// The same, but sound; it may touch itself, have seams, spikes and points in the middle of a straight line.
[[nodiscard]] SGridShape RandomSoundShape(CSeededRandom& random, int nVerticesMost);

}  // namespace nestrix::support
