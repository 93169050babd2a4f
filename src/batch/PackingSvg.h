#pragma once

#include <string>

#include "PictureView.h"

/// Draws the packing as an SVG document: the strip's walls and floor with a scale, every outline with its
/// drop number, counted from 1, and a line at the packing's height with its caption.
///
/// The outlines' points are the world coordinates as they are, in full precision, y upward; one element turns
/// them over. The same packing gives the same bytes.
///
/// @return empty when some number of the packing is not finite: no viewer could show it.
[[nodiscard]] std::string DrawPackingSvg(const SPacking& packing);
