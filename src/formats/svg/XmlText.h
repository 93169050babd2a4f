#pragma once

#include <string>
#include <string_view>

namespace nestrix {

/// The text as XML can hold it: what is no UTF-8, and characters that XML forbids, are replaced by U+FFFD. It
/// is still to be escaped.
[[nodiscard]] std::string XmlText(std::string_view text);

}  // namespace nestrix
