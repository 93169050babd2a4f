#pragma once

#include <string>

namespace nestrix {

/// A finite number as text for an SVG attribute, with a decimal point under every locale.
///
/// A float keeps its full precision in the fewest digits that read back as the same float; a double, which
/// here is only ever a place in the layout, is rounded to six significant digits.
[[nodiscard]] std::string SvgNumber(float fValue);
[[nodiscard]] std::string SvgNumber(double value);

}  // namespace nestrix
