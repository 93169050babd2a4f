#pragma once

#include <string>

namespace nestrix {

/// Draws an SVG document as a PNG picture. Needs no display.
/// @param nPixels how long its longer side is.
/// @param fault why it could not be drawn.
/// @return the file's content; empty with a fault.
[[nodiscard]] std::string DrawPng(const std::string& svg, int nPixels, std::string& fault);

}  // namespace nestrix
