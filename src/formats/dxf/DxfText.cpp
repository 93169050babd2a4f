#include "formats/dxf/DxfText.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdint>
#include <optional>

namespace nestrix {

namespace {

constexpr char32_t FIRST_SURROGATE = 0xD800;
constexpr char32_t FIRST_LOW_SURROGATE = 0xDC00;
constexpr char32_t LAST_SURROGATE = 0xDFFF;
constexpr char32_t FIRST_LONG = 0x10000;
constexpr char32_t LARGEST = 0x10FFFF;
constexpr char32_t REPLACEMENT = 0xFFFD;

/// What the bytes 0x80 to 0x9F are in the code page of western Windows.
constexpr std::array<char32_t, 32> WINDOWS{0x20AC, 0xFFFD, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                           0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0xFFFD, 0x017D, 0xFFFD,
                                           0xFFFD, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                           0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0xFFFD, 0x017E, 0x0178};

bool IsSurrogate(char32_t character) {
    return character >= FIRST_SURROGATE && character <= LAST_SURROGATE;
}

void Append(std::string& text, char32_t character) {
    const auto add = [&text](char32_t bits) { text.push_back(static_cast<char>(bits)); };
    if (character < 0x20 || character == 0x7F) {
        return;  // nothing that would move the cursor of a terminal
    }
    if (character < 0x80) {
        add(character);
    } else if (character < 0x800) {
        add(0xC0 | character >> 6);
        add(0x80 | (character & 0x3F));
    } else if (character < FIRST_LONG) {
        add(0xE0 | character >> 12);
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    } else {
        add(0xF0 | character >> 18);
        add(0x80 | (character >> 12 & 0x3F));
        add(0x80 | (character >> 6 & 0x3F));
        add(0x80 | (character & 0x3F));
    }
}

struct SCharacter {
    char32_t m_Value = 0;
    size_t m_nBytes = 1;
};

/// The character that the text begins with; a byte that begins none is of western Windows.
SCharacter FirstOf(std::string_view text) {
    const auto byteAt = [text](size_t i) {
        return i < text.size() ? static_cast<unsigned char>(text[i]) : 0U;
    };
    const char32_t first = byteAt(0);
    const size_t nBytes = first < 0x80 ? 1 : first < 0xC2 ? 0 : first < 0xE0 ? 2 : first < 0xF0 ? 3 : 4;
    char32_t value = nBytes < 2 ? first : first & (0x7FU >> nBytes);
    for (size_t i = 1; i < nBytes; ++i) {
        value = (byteAt(i) & 0xC0) == 0x80 ? value << 6 | (byteAt(i) & 0x3F) : LARGEST + 1;
        if (value > LARGEST) {
            break;
        }
    }
    constexpr std::array<char32_t, 5> LEAST{0, 0, 0x80, 0x800, FIRST_LONG};
    if (nBytes > 0 && value <= LARGEST && value >= LEAST[nBytes] && !IsSurrogate(value)) {
        return {value, nBytes};
    }
    return {first < 0xA0 ? WINDOWS[first - 0x80] : first, 1};
}

/// The number that the text begins with, if so many digits do.
std::optional<char32_t> NumberIn(std::string_view text, size_t nDigits, int nBase) {
    uint32_t nNumber = 0;
    if (text.size() < nDigits) {
        return std::nullopt;
    }
    const auto [pEnd, error] = std::from_chars(text.data(), text.data() + nDigits, nNumber, nBase);
    return error == std::errc() && pEnd == text.data() + nDigits ? std::optional<char32_t>(nNumber)
                                                                 : std::nullopt;
}

/// Takes the text apart from front to back.
class CDecoder {
public:
    explicit CDecoder(std::string_view text) : m_Rest(text) {}

    [[nodiscard]] bool IsAtEnd() const { return m_Rest.empty(); }
    [[nodiscard]] bool Skip(std::string_view start) {
        const bool bThere = m_Rest.starts_with(start);
        m_Rest.remove_prefix(bThere ? start.size() : 0);
        return bThere;
    }
    char TakeByte() {
        const char byte = m_Rest.front();
        m_Rest.remove_prefix(1);
        return byte;
    }
    std::string_view TakeUpTo(char end) {
        const std::string_view taken = m_Rest.substr(0, m_Rest.find(end));
        m_Rest.remove_prefix(std::min(taken.size() + 1, m_Rest.size()));
        return taken;
    }

    /// One character, escaped or not.
    void Copy(std::string& text) {
        if (const auto value = TakeEscaped()) {
            Append(text, *value);
            return;
        }
        const SCharacter character = FirstOf(m_Rest);
        m_Rest.remove_prefix(character.m_nBytes);
        Append(text, character.m_Value);
    }

    /// One that "%%" may begin; such that switch lines above and below the text on and off are dropped.
    void CopySpecial(std::string& text) {
        if (!Skip("%%")) {
            Copy(text);
            return;
        }
        if (m_Rest.empty()) {
            return;
        }
        constexpr std::string_view LETTERS = "dDcCpPuUoOkK%";
        constexpr std::array<char32_t, 13> MEANT{0xB0, 0xB0, 0x2300, 0x2300, 0xB1, 0xB1, 0,
                                                 0,    0,    0,      0,      0,    '%'};
        const size_t nLetter = LETTERS.find(m_Rest.front());
        if (nLetter != std::string_view::npos) {
            Append(text, MEANT[nLetter]);
            m_Rest.remove_prefix(1);
        } else if (const auto value = NumberIn(m_Rest, 3, 10); value && *value < 0x100) {
            Append(text, *value);
            m_Rest.remove_prefix(3);
        }
    }

private:
    /// "\U+XXXX", or two of them that make one character.
    std::optional<char32_t> TakeEscaped() {
        const auto first = EscapedAt(0);
        if (!first) {
            return std::nullopt;
        }
        const auto second = EscapedAt(ESCAPE_LENGTH);
        const bool bPair = *first >= FIRST_SURROGATE && *first < FIRST_LOW_SURROGATE && second &&
                           *second >= FIRST_LOW_SURROGATE && *second <= LAST_SURROGATE;
        m_Rest.remove_prefix(bPair ? 2 * ESCAPE_LENGTH : ESCAPE_LENGTH);
        if (bPair) {
            return FIRST_LONG + ((*first - FIRST_SURROGATE) << 10) + (*second - FIRST_LOW_SURROGATE);
        }
        return IsSurrogate(*first) ? REPLACEMENT : *first;
    }

    [[nodiscard]] std::optional<char32_t> EscapedAt(size_t nAt) const {
        const std::string_view there = m_Rest.substr(std::min(nAt, m_Rest.size()));
        return there.starts_with("\\U+") ? NumberIn(there.substr(3), 4, 16) : std::nullopt;
    }

    static constexpr size_t ESCAPE_LENGTH = 7;
    std::string_view m_Rest;
};

/// What follows a backslash in an MTEXT.
void CopyFormatted(CDecoder& decoder, std::vector<std::string>& lines) {
    if (decoder.IsAtEnd()) {
        return;
    }
    const char letter = decoder.TakeByte();
    constexpr std::string_view WITH_VALUE = "ACcfFHQTWp";
    constexpr std::string_view SWITCHES = "LlOoKk";
    if (letter == 'P' || letter == 'X' || letter == 'N') {
        lines.emplace_back();
    } else if (letter == '~') {
        lines.back().push_back(' ');
    } else if (letter == 'S') {
        std::string fraction(decoder.TakeUpTo(';'));
        std::replace_if(
            fraction.begin(), fraction.end(), [](char c) { return c == '^' || c == '#'; }, '/');
        lines.back().append(DecodedName(fraction));
    } else if (WITH_VALUE.find(letter) != std::string_view::npos) {
        (void)decoder.TakeUpTo(';');
    } else if (SWITCHES.find(letter) == std::string_view::npos) {
        Append(lines.back(),
               static_cast<unsigned char>(letter) < 0x80 ? static_cast<char32_t>(letter) : REPLACEMENT);
    }
}

}  // namespace

std::string DecodedText(std::string_view text) {
    std::string decoded;
    for (CDecoder decoder(text); !decoder.IsAtEnd();) {
        decoder.CopySpecial(decoded);
    }
    return decoded;
}

std::string DecodedName(std::string_view name) {
    std::string decoded;
    for (CDecoder decoder(name); !decoder.IsAtEnd();) {
        decoder.Copy(decoded);
    }
    return decoded;
}

std::vector<std::string> DecodedLines(std::string_view text) {
    std::vector<std::string> lines(1);
    for (CDecoder decoder(text); !decoder.IsAtEnd();) {
        if (decoder.Skip("{") || decoder.Skip("}")) {
            continue;
        }
        if (decoder.Skip("^I")) {
            lines.back().push_back(' ');
        } else if (decoder.Skip("^J")) {
            lines.emplace_back();
        } else if (!CDecoder(decoder).Skip("\\U+") && decoder.Skip("\\")) {
            CopyFormatted(decoder, lines);
        } else {
            decoder.CopySpecial(lines.back());
        }
    }
    return lines;
}

std::string EncodedText(std::string_view text) {
    constexpr char const* DIGITS = "0123456789ABCDEF";
    std::string encoded;
    const auto escape = [&encoded](char32_t unit) {
        encoded.append("\\U+");
        for (const int nShift : {12, 8, 4, 0}) {
            encoded.push_back(DIGITS[unit >> nShift & 0xF]);
        }
    };
    while (!text.empty()) {
        const SCharacter character = FirstOf(text);
        const char32_t value = character.m_Value;
        const bool bPlain = value < 0x7F && value != '\\' && value != '%' && value != '^';
        if (value < 0x20) {
            encoded.push_back(' ');
        } else if (bPlain) {
            encoded.push_back(static_cast<char>(value));
        } else if (value < FIRST_LONG) {
            escape(value);
        } else {
            escape(FIRST_SURROGATE + ((value - FIRST_LONG) >> 10));
            escape(FIRST_LOW_SURROGATE + ((value - FIRST_LONG) & 0x3FF));
        }
        text.remove_prefix(character.m_nBytes);
    }
    return encoded;
}

size_t CharacterCount(std::string_view text) {
    return static_cast<size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

}  // namespace nestrix
