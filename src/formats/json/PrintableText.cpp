#include "formats/json/PrintableText.h"

#include <nlohmann/json.hpp>

namespace nestrix {

namespace {

bool IsContinued(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The library escapes the control characters that JSON forbids; these others act on terminals, too.
std::string WithoutOtherControls(const std::string& text) {
    std::string plain;
    plain.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        const bool bUpperControl =
            text[i] == '\xC2' && i + 1 < text.size() && static_cast<unsigned char>(text[i + 1]) < 0xA0U;
        if (bUpperControl) {
            constexpr std::string_view DIGITS = "0123456789abcdef";
            const auto nByte = static_cast<unsigned char>(text[++i]);
            plain.append("\\u00").append({DIGITS[nByte >> 4U], DIGITS[nByte & 15U]});
        } else {
            plain += text[i];
        }
    }
    return plain;
}

}  // namespace

std::string QuotedText(std::string_view text) {
    // Not as ASCII: names are to be read. Deletes come escaped from the library all the same.
    return nlohmann::json(text).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
}

std::string PrintableText(std::string_view text, size_t nMost) {
    const bool bCut = text.size() > nMost;
    if (bCut) {
        size_t nEnd = nMost;
        while (nEnd > 0 && IsContinued(text[nEnd])) {
            --nEnd;
        }
        text = text.substr(0, nEnd);
    }
    const std::string quoted = WithoutOtherControls(QuotedText(text));
    std::string plain;
    // Quotes and backslashes are harmless as they are.
    for (size_t i = 1; i + 1 < quoted.size(); ++i) {
        const bool bEscapedMark = quoted[i] == '\\' && (quoted[i + 1] == '"' || quoted[i + 1] == '\\');
        i += bEscapedMark ? 1 : 0;
        plain += quoted[i];
    }
    return plain + (bCut ? "…" : "");
}

}  // namespace nestrix
