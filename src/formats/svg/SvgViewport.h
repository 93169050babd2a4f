#pragma once

#include "drawing/Unit.h"
#include "formats/svg/CSvgElement.h"

namespace nestrix {

/// How the coordinates inside the outermost "svg" element become those of a drawing.
struct SSvgPage {
    SSvgContext m_Inside;
    std::optional<EUnit> m_Unit;  ///< millimetres where its size is told in a physical unit
};

/// Turns the page over: the lower left corner comes to 0, 0. A page that tells no physical size keeps its
/// user units, and the findings say so.
[[nodiscard]] SSvgPage ReadPage(pugi::xml_node svg, CSvgFindings& findings);

/// What is inside an "svg" or "symbol" element that is not the outermost.
/// @param sizes the element that tells width and height: a "use", where it is shown by one, or itself.
[[nodiscard]] SSvgContext InsideViewport(const CSvgElement& viewport, const CSvgElement& sizes);

}  // namespace nestrix
