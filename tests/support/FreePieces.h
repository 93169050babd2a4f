#pragma once

#include <cstdint>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix::support {

[[nodiscard]] CRing RectangleRing(double left, double bottom, double width, double height);

/// One copy, which may not be turned.
[[nodiscard]] SPiece PieceOf(CRing outline, std::vector<CRing> holes = {});

/// A regular polygon about 0, 0, its points on a grid of 1/1000.
[[nodiscard]] SPiece RegularPiece(int nVertices, double radius);

/// A star about 0, 0: a regular polygon, every other vertex of which lies on the smaller circle.
[[nodiscard]] SPiece Star(int nPoints, double inner, double outer);

/// One placement of each piece, in their order, at the given points; on a grid of whole units, with the
/// height that it has.
[[nodiscard]] SFreePacking PackingAt(const SFreeStrip& strip, std::span<const SPiece> pieces,
                                     const std::vector<SGridPoint>& at);

/// The shape drawn on a grid of whole units.
[[nodiscard]] SShape AsDrawn(const SGridShape& shape);

}  // namespace nestrix::support
