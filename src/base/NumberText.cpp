#include "base/NumberText.h"

#include <array>
#include <charconv>

namespace nestrix {

namespace {

/// The longest double has 309 digits before its point, the smallest 1074 behind.
using CBuffer = std::array<char, 2048>;

}  // namespace

std::string ShortestDigits(double number) {
    CBuffer buffer;
    // Adding zero turns a negative zero into the plain one.
    const auto end =
        std::to_chars(buffer.data(), buffer.data() + buffer.size(), number + 0.0, std::chars_format::fixed)
            .ptr;
    return {buffer.data(), end};
}

std::string Decimals(double number, int nDecimals) {
    CBuffer buffer;
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number + 0.0,
                                   std::chars_format::fixed, nDecimals)
                         .ptr;
    return {buffer.data(), end};
}

}  // namespace nestrix
