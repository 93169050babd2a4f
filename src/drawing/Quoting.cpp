#include "drawing/Quoting.h"

#include <boost/locale/utf.hpp>

namespace nestrix {

namespace {

using CUtf8 = boost::locale::utf::utf_traits<char>;

bool CanBeShown(boost::locale::utf::code_point character) {
    const bool bControl = character < 0x20 || (character >= 0x7F && character < 0xA0);
    return boost::locale::utf::is_valid_codepoint(character) && !bControl;
}

}  // namespace

std::string Quoted(std::string_view text, const SQuoting& quoting) {
    std::string quoted(1, quoting.m_Mark);
    const char* const pEnd = text.data() + text.size();
    const char* pAt = text.data();
    while (pAt != pEnd) {
        const char* pNext = pAt;
        const bool bShown = CanBeShown(CUtf8::decode(pNext, pEnd));
        pNext = bShown ? pNext : pAt + 1;
        if (static_cast<size_t>(pNext - text.data()) > quoting.m_nMost) {
            break;
        }
        quoted.append(bShown ? std::string_view(pAt, pNext) : std::string_view(&quoting.m_Substitute, 1));
        pAt = pNext;
    }
    return quoted.append(pAt == pEnd ? "" : "...") + quoting.m_Mark;
}

}  // namespace nestrix
