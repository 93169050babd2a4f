#pragma once

#include <CLI/CLI.hpp>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// A whole number in decimal digits. The library alone would take 010 for 8, and nothing for no option.
[[nodiscard]] CLI::Validator WholeNumber(uint64_t nLeast, uint64_t nMost);

/// One kind of option value: how it is read, and what is demanded of it, in words that continue "is not".
template <class T>
struct SValueKind {
    std::optional<T> (*m_pRead)(std::string_view text);
    char const* m_pDemand;
};

/// Adds an option whose value is read by its kind, always with a decimal point.
/// @param value takes what was read; it outlives the parsing.
template <class T, class TValue>
CLI::Option* AddOption(CLI::App& app, const std::string& name, TValue& value, const SValueKind<T>& kind,
                       const std::string& description) {
    const auto take = [&value, name, kind](const std::string& text) {
        const std::optional<T> read = kind.m_pRead(text);
        if (!read) {
            throw CLI::ValidationError(name, "'" + text + "' is not " + kind.m_pDemand);
        }
        value = *read;
    };
    return app.add_option_function<std::string>(name, take, description);
}

// The readers give nothing for a text that is at fault.

/// A finite number; not what the standard library would take besides, such as blanks in front.
[[nodiscard]] std::optional<double> ReadNumber(std::string_view text);

/// A width that a strip can have: see GridFor.
[[nodiscard]] std::optional<double> ReadWidth(std::string_view text);

/// A distance in the strip, at least 0.
[[nodiscard]] std::optional<double> ReadDistance(std::string_view text);

/// A finite number above 0.
[[nodiscard]] std::optional<double> ReadPositive(std::string_view text);

/// A share above 0 and up to 1, given in percent with or without the sign.
[[nodiscard]] std::optional<double> ReadPercent(std::string_view text);

/// A time above 0 in seconds, given as "500ms", "60s", "2m", "1h" or as plain seconds.
[[nodiscard]] std::optional<double> ReadTime(std::string_view text);

/// "any", or angles in degrees between commas. They come back from 0 to below 360, each of them once.
[[nodiscard]] std::optional<STurns> ReadTurns(std::string_view text);

inline constexpr SValueKind<double> WIDTH{ReadWidth, "a number from 1e-14 to 1e28"};
inline constexpr SValueKind<double> DISTANCE{ReadDistance, "a number from 0 to 1e28"};
inline constexpr SValueKind<double> POSITIVE{ReadPositive, "a number above 0"};
inline constexpr SValueKind<double> PERCENT{ReadPercent, "a percentage above 0 and up to 100"};
inline constexpr SValueKind<double> TIME{ReadTime, "a time above 0, such as 60s, 500ms or 2m"};
inline constexpr SValueKind<STurns> TURNS{ReadTurns, "\"any\" or a list of degrees, such as 0,90,180,270"};

}  // namespace nestrix
