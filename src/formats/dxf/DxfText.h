#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace nestrix {

/// The characters that a TEXT stands for, in UTF-8: "%%d" for a degree sign, "\U+00E4" and the like resolved,
/// bytes that are no UTF-8 taken for those of western Windows; without control characters.
[[nodiscard]] std::string DecodedText(std::string_view text);

/// The same for the name of a layer or a block, in which "%%" has no meaning.
[[nodiscard]] std::string DecodedName(std::string_view name);

/// The lines of an MTEXT without its formatting.
[[nodiscard]] std::vector<std::string> DecodedLines(std::string_view text);

/// What is read back as these characters by any reader, whatever code page it takes the file to be in: plain
/// ASCII.
[[nodiscard]] std::string EncodedText(std::string_view text);

/// How many characters a text in UTF-8 has.
[[nodiscard]] size_t CharacterCount(std::string_view text);

}  // namespace nestrix
