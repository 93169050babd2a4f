#include "formats/dxf/CDxfWriter.h"

#include <array>
#include <charconv>

#include "base/NumberText.h"

namespace nestrix {

CDxfWriter& CDxfWriter::Text(int nCode, std::string_view value) {
    m_Document.append(std::to_string(nCode)).append("\n").append(value).append("\n");
    return *this;
}

CDxfWriter& CDxfWriter::Whole(int nCode, int64_t nValue) {
    return Text(nCode, std::to_string(nValue));
}

/// With a decimal point in every real number: some readers tell by it what a number is.
CDxfWriter& CDxfWriter::Real(int nCode, double value) {
    std::string digits = ShortestDigits(value);
    if (digits.find('.') == std::string::npos) {
        digits.append(".0");
    }
    return Text(nCode, digits);
}

CDxfWriter& CDxfWriter::Handle(int nCode, CHandle handle) {
    std::array<char, 16> digits{};
    char* const pEnd = std::to_chars(digits.data(), digits.data() + digits.size(), handle, 16).ptr;
    for (char* pDigit = digits.data(); pDigit != pEnd; ++pDigit) {
        *pDigit = *pDigit >= 'a' ? static_cast<char>(*pDigit - 'a' + 'A') : *pDigit;
    }
    return Text(nCode, {digits.data(), pEnd});
}

CDxfWriter& CDxfWriter::Point(int nCode, SPoint point) {
    return FlatPoint(nCode, point).Real(nCode + 20, 0.0);
}

CDxfWriter& CDxfWriter::FlatPoint(int nCode, SPoint point) {
    return Real(nCode, point.m_X).Real(nCode + 10, point.m_Y);
}

}  // namespace nestrix
