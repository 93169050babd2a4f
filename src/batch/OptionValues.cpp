#include "batch/OptionValues.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

namespace nestrix {

namespace {

// What a grid can be made for.
constexpr double LEAST_WIDTH = 1e-14;
constexpr double MOST_WIDTH = 1e28;

std::optional<double> Within(std::optional<double> number, double least, double most) {
    return number && *number >= least && *number <= most ? number : std::nullopt;
}

std::optional<double> OnlyPositive(std::optional<double> number) {
    return number && *number > 0.0 && std::isfinite(*number) ? number : std::nullopt;
}

/// The same direction from 0 to below 360.
double WithinOneTurn(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    const double turned = rest < 0.0 ? rest + 360.0 : rest;
    return turned < 360.0 ? turned + 0.0 : 0.0;  // a tiny angle below 0 is rounded to a whole turn
}

}  // namespace

CLI::Validator WholeNumber(uint64_t nLeast, uint64_t nMost) {
    return CLI::Validator(
        [nLeast, nMost](std::string& text) {
            uint64_t nNumber = 0;
            const auto [pEnd, error] = std::from_chars(text.data(), text.data() + text.size(), nNumber);
            if (error != std::errc() || pEnd != text.data() + text.size() || nNumber < nLeast ||
                nNumber > nMost) {
                return "'" + text + "' is not a whole number from " + std::to_string(nLeast) + " to " +
                       std::to_string(nMost);
            }
            text = std::to_string(nNumber);
            return std::string();
        },
        "");
}

std::optional<double> ReadNumber(std::string_view text) {
    double number = 0.0;
    const auto [pEnd, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool bWhole = error == std::errc() && pEnd == text.data() + text.size();
    return bWhole && std::isfinite(number) ? std::optional(number) : std::nullopt;
}

std::optional<double> ReadWidth(std::string_view text) {
    return Within(ReadNumber(text), LEAST_WIDTH, MOST_WIDTH);
}

std::optional<double> ReadDistance(std::string_view text) {
    return Within(ReadNumber(text), 0.0, MOST_WIDTH);
}

std::optional<double> ReadPositive(std::string_view text) {
    return OnlyPositive(ReadNumber(text));
}

std::optional<double> ReadPercent(std::string_view text) {
    if (text.ends_with('%')) {
        text.remove_suffix(1);
    }
    const std::optional<double> percent = OnlyPositive(Within(ReadNumber(text), 0.0, 100.0));
    return percent ? OnlyPositive(*percent / 100.0) : std::nullopt;
}

std::optional<double> ReadTime(std::string_view text) {
    struct SUnit {
        std::string_view m_Name;
        double m_Seconds;
    };
    // Before the seconds, which milliseconds also end in.
    constexpr std::array<SUnit, 5> UNITS{{{"ms", 1e-3}, {"s", 1.0}, {"m", 60.0}, {"h", 3600.0}, {"", 1.0}}};
    const SUnit& unit = *std::find_if(UNITS.begin(), UNITS.end(),
                                      [text](const SUnit& named) { return text.ends_with(named.m_Name); });
    text.remove_suffix(unit.m_Name.size());
    const std::optional<double> number = ReadNumber(text);
    return number ? OnlyPositive(*number * unit.m_Seconds) : std::nullopt;
}

std::optional<STurns> ReadTurns(std::string_view text) {
    if (text == "any") {
        return STurns{true, {}};
    }
    STurns turns{false, {}};
    for (size_t nFrom = 0; nFrom <= text.size();) {
        const size_t nEnd = std::min(text.find(',', nFrom), text.size());
        const std::optional<double> degrees = ReadNumber(text.substr(nFrom, nEnd - nFrom));
        if (!degrees) {
            return std::nullopt;
        }
        const double turn = WithinOneTurn(*degrees);
        if (std::find(turns.m_Degrees.begin(), turns.m_Degrees.end(), turn) == turns.m_Degrees.end()) {
            turns.m_Degrees.push_back(turn);
        }
        nFrom = nEnd + 1;
    }
    return turns;
}

}  // namespace nestrix
