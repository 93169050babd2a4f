#pragma once

#include <span>
#include <string>

#include "packing/SFreePacking.h"

namespace nestrix {

/// Draws a free packing as an SVG document: the strip's walls and floor with a scale, its margin if it has
/// one, every piece as a path with its holes, coloured by its kind and numbered in the order of placing from
/// 1, and a line at the packing's height with a caption that tells the density.
///
/// The paths' points are those of the grid to the last digit, y upward; one element turns them over. The same
/// packing gives the same bytes.
///
/// @param pieces the set whose pieces are packed.
[[nodiscard]] std::string DrawFreePackingSvg(std::span<const SPiece> pieces, const SFreePacking& packing);

}  // namespace nestrix
