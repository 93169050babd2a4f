#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace nestrix {

/// How the findings about a format quote what is at fault in a file.
struct SQuoting {
    char m_Mark = '"';
    char m_Substitute = '?';  ///< for each byte of what cannot be shown
    size_t m_nMost = 0;       ///< so many bytes of the text
};

/// The beginning of a text that is any bytes, in quotation marks and on one line: whole characters in UTF-8
/// that do nothing to a terminal. Where the text goes on, "..." follows.
[[nodiscard]] std::string Quoted(std::string_view text, const SQuoting& quoting);

}  // namespace nestrix
