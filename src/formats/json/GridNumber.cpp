#include "formats/json/GridNumber.h"

namespace nestrix {

std::string GridDigits(int64_t nUnits, const SGrid& grid) {
    if (nUnits == 0) {
        return "0";
    }
    const bool bNegative = nUnits < 0;
    std::string digits = std::to_string(nUnits).substr(bNegative ? 1 : 0);
    std::string number = bNegative ? "-" : "";
    if (grid.m_nExponent >= 0) {
        return number + digits + std::string(static_cast<size_t>(grid.m_nExponent), '0');
    }
    const auto nDecimals = static_cast<size_t>(-grid.m_nExponent);
    if (digits.size() <= nDecimals) {
        digits = std::string(nDecimals + 1 - digits.size(), '0') + digits;
    }
    number += digits.substr(0, digits.size() - nDecimals);
    const std::string decimals = digits.substr(digits.size() - nDecimals);
    const size_t nKept = decimals.find_last_not_of('0') + 1;  // none: 0
    return nKept == 0 ? number : number + "." + decimals.substr(0, nKept);
}

}  // namespace nestrix
