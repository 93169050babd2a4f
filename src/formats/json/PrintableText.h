#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nestrix {

/// Any bytes as one line that does nothing to a terminal: control characters as \u001b, what is no UTF-8 as
/// the replacement character, and cut with an ellipsis behind about so many bytes.
[[nodiscard]] std::string PrintableText(std::string_view text, size_t nMost);

/// Any bytes as a JSON string, quotes included. What is no UTF-8 is replaced.
[[nodiscard]] std::string JsonString(std::string_view text);

}  // namespace nestrix
