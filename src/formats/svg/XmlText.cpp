#include "formats/svg/XmlText.h"

#include <boost/locale/utf.hpp>

namespace nestrix {

namespace {

using CUtf8 = boost::locale::utf::utf_traits<char>;

constexpr std::string_view REPLACEMENT = "\xEF\xBF\xBD";

bool IsAllowed(boost::locale::utf::code_point character) {
    const bool bSpace = character == '\t' || character == '\n' || character == '\r';
    return (character >= 0x20 || bSpace) && character != 0xFFFE && character != 0xFFFF &&
           boost::locale::utf::is_valid_codepoint(character);
}

}  // namespace

std::string XmlText(std::string_view text) {
    std::string sound;
    for (auto at = text.begin(); at != text.end();) {
        auto next = at;
        if (IsAllowed(CUtf8::decode(next, text.end()))) {
            sound.append(at, next);
            at = next;
        } else {
            sound.append(REPLACEMENT);
            ++at;
        }
    }
    return sound;
}

}  // namespace nestrix
