#include "drawing/FindingText.h"

#include <cmath>

#include "base/NumberText.h"

namespace nestrix {

std::string InWords(double length) {
    if (std::isnan(length)) {
        return "nan";
    }
    if (std::isinf(length)) {
        return length < 0.0 ? "-inf" : "inf";
    }
    const std::string digits = Decimals(length, 4);
    const size_t nLast = digits.find_last_not_of('0');
    const std::string text = digits.substr(0, digits[nLast] == '.' ? nLast : nLast + 1);
    return text == "-0" ? std::string("0") : text;
}

std::string InWords(SPoint point) {
    std::string text = "(";
    text += InWords(point.m_X);
    text += ", ";
    text += InWords(point.m_Y);
    text += ")";
    return text;
}

}  // namespace nestrix
