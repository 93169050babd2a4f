#include "formats/SvgNumber.h"

#include <array>
#include <charconv>

namespace nestrix {

namespace {

constexpr int LAYOUT_DIGITS = 6;

/// Larger than any number here: a sign, nine digits, a point and an exponent, or the zeros of a plain form
/// that is shorter than the exponent's.
using CBuffer = std::array<char, 64>;

}  // namespace

std::string SvgNumber(float fValue) {
    CBuffer buffer;
    // Adding zero turns a negative zero into the plain one.
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), fValue + 0.0F).ptr;
    return {buffer.data(), end};
}

std::string SvgNumber(double value) {
    CBuffer buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value + 0.0,
                                   std::chars_format::general, LAYOUT_DIGITS)
                         .ptr;
    return {buffer.data(), end};
}

}  // namespace nestrix
