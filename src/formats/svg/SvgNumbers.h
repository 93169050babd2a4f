#pragma once

#include <cstddef>
#include <string_view>

namespace nestrix {

/// How much of the text the library's grammars may be given: all of it, or up to a number with hundreds of
/// digits or with an exponent of more than three. Its number parser counts digits in an int and relies on
/// the sum with the exponent being one, too.
[[nodiscard]] size_t SoundNumbersUpTo(std::string_view text);

}  // namespace nestrix
