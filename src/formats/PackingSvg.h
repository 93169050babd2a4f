#pragma once

#include <span>
#include <string>

#include "formats/PictureView.h"

namespace nestrix {

/// Draws the packing as an SVG document: the strip's walls and floor with a scale, every outline with its
/// drop number, counted from 1, and a line at the packing's height with its caption.
///
/// The outlines' points are the world coordinates as they are, in full precision, y upward; one element turns
/// them over. The same packing gives the same bytes.
///
/// @param pieces the set whose pieces are packed.
/// @return empty when some number of the packing is not finite: no viewer could show it.
[[nodiscard]] std::string DrawPackingSvg(std::span<const CPolygon> pieces, const SPacking& packing);

}  // namespace nestrix
