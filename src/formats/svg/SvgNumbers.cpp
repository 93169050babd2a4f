#include "formats/svg/SvgNumbers.h"

namespace nestrix {

namespace {

constexpr size_t MOST_DIGITS = 100;
constexpr size_t MOST_EXPONENT_DIGITS = 3;

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

}  // namespace

size_t SoundNumbersUpTo(std::string_view text) {
    size_t nDigits = 0;
    size_t nMost = MOST_DIGITS;
    for (size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (IsDigit(c)) {
            if (++nDigits > nMost) {
                return i;
            }
        } else {
            const bool bSign = c == '-' || c == '+';
            const bool bExponent = c == 'e' || c == 'E';
            const bool bAfterExponent = bSign && i > 0 && (text[i - 1] == 'e' || text[i - 1] == 'E');
            nMost = bExponent || bAfterExponent ? MOST_EXPONENT_DIGITS : MOST_DIGITS;
            nDigits = 0;
        }
    }
    return text.size();
}

}  // namespace nestrix
