#pragma once

#include <string>

#include "drawing/SDrawing.h"
#include "formats/svg/SvgDrawing.h"

namespace nestrix {

/// A path in the manner of path data, with absolute coordinates rounded to four decimals. An arc is
/// "A(centre; first radius; second radius; from, sweep in degrees) end".
[[nodiscard]] std::string InShort(const SPath& path);

/// All paths of a drawing, one behind the other.
[[nodiscard]] std::string InShort(const SDrawing& drawing);

/// All findings, one a line, without the file's name: "3 odd: message".
[[nodiscard]] std::string InShort(const std::vector<SFinding>& findings);

/// What an SVG file reads as that has this text.
[[nodiscard]] SDrawing ReadSvgText(const std::string& text, size_t nMostPoints = MOST_SVG_POINTS);

/// What this content of an "svg" element reads as, in which y counts from -100 below to 0, and lengths have
/// no unit. The note that says so is taken out of the findings.
[[nodiscard]] SDrawing ReadSvgContent(const std::string& content);

}  // namespace nestrix
