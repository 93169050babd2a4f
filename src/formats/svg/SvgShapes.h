#pragma once

#include "formats/svg/CSvgElement.h"

namespace nestrix {

/// What a "rect", "circle", "ellipse", "line", "polyline" or "polygon" draws, in its own coordinates, y down.
/// None for other elements, and for one whose size is 0, which draws nothing.
[[nodiscard]] std::optional<SPath> ShapeOf(std::string_view name, const CSvgElement& element);

}  // namespace nestrix
