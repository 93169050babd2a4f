#include "formats/json/PrintableText.h"

#include <nlohmann/json.hpp>

namespace nestrix {

namespace {

bool IsContinued(char c) {
    return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U;
}

/// The number of the character that begins with this byte, if it is a control character that JSON allows, and
/// the library therefore lets through; otherwise 0.
unsigned int ControlAt(std::string_view text, size_t nAt) {
    constexpr unsigned int DELETE = 0x7F;
    constexpr unsigned int CONTROLS_END = 0xA0;
    const auto byteAt = [text](size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    if (byteAt(nAt) == DELETE) {
        return DELETE;
    }
    return byteAt(nAt) == 0xC2U && byteAt(nAt + 1) < CONTROLS_END ? byteAt(nAt + 1) : 0U;
}

std::string WithoutOtherControls(std::string_view text) {
    constexpr std::string_view DIGITS = "0123456789abcdef";
    std::string plain;
    plain.reserve(text.size());
    for (size_t i = 0; i < text.size(); ++i) {
        if (const unsigned int nControl = ControlAt(text, i); nControl != 0) {
            plain.append("\\u00").append({DIGITS[nControl >> 4U], DIGITS[nControl & 15U]});
            i += static_cast<unsigned char>(text[i]) == nControl ? 0 : 1;
        } else {
            plain += text[i];
        }
    }
    return plain;
}

}  // namespace

std::string JsonString(std::string_view text) {
    // Not as ASCII: names are to be read.
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
    const std::string quoted = WithoutOtherControls(JsonString(text));
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
