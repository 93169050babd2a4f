#pragma once

#include <string>

namespace nestrix {

/// A finite number without an exponent, in the fewest digits that are read back as the same number.
[[nodiscard]] std::string ShortestDigits(double number);

/// A finite number rounded to so many decimals, all of them written.
[[nodiscard]] std::string Decimals(double number, int nDecimals);

}  // namespace nestrix
