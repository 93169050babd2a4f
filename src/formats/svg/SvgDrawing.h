#pragma once

#include <string>

#include "drawing/SDrawing.h"

namespace nestrix {

/// Far more than any drawing has, in less than a gigabyte.
inline constexpr size_t MOST_SVG_POINTS = 5'000'000;

/// Reads an SVG file: paths with all commands, the basic shapes and texts, with groups, copies, viewports and
/// transforms resolved. Curves stay curves and arcs arcs.
///
/// Lengths are millimetres where the page's width or height is told in a physical unit, else the user units
/// of its "viewBox", with a note that says so. The page's lower left corner is 0, 0.
///
/// A line's name is the nearest "inkscape:label", else the nearest "id"; those of Inkscape's layers name its
/// layer instead. What is hidden by "display" or "visibility" is left out, and so is what only serves others:
/// definitions, clips, masks, patterns, markers. What else is left out is told once for each kind. Outlines
/// are taken whole: nothing is clipped, at the edge of a viewport neither. What stands on a group that
/// WriteSvgPlan adds to the pieces is none of the drawing.
///
/// @param nMostPoints how much a drawing may hold with all its copies: a file of a few lines can ask for
/// billions. An element counts as five points, and what is copied four times.
/// @return what could be read. With a fault among the findings that is not all.
[[nodiscard]] SDrawing ReadSvg(const std::string& path, size_t nMostPoints = MOST_SVG_POINTS);

}  // namespace nestrix
