#pragma once

#include <string>

#include "drawing/SDrawing.h"

namespace nestrix {

/// Reads an SVG file: paths with all commands, the basic shapes and texts, with groups, copies, viewports and
/// transforms resolved. Curves stay curves and arcs arcs.
///
/// Lengths are millimetres where the page's width or height is told in a physical unit, else the user units
/// of its "viewBox", with a note that says so. The page's lower left corner is 0, 0.
///
/// A line's name is the nearest "inkscape:label", else the nearest "id"; those of Inkscape's layers name its
/// layer instead. What is hidden by "display" or "visibility" is left out, and so is what only serves others:
/// definitions, clips, masks, patterns, markers. What else is left out is told once for each kind.
///
/// @return what could be read. With a fault among the findings that is not all.
[[nodiscard]] SDrawing ReadSvg(const std::string& path);

}  // namespace nestrix
