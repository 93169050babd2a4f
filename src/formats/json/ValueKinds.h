#pragma once

#include <cstdint>
#include <limits>
#include <optional>
#include <string>
#include <vector>

#include "drawing/Unit.h"
#include "formats/json/CJsonFindings.h"
#include "formats/json/NamedValues.h"
#include "packing/SPiece.h"

namespace nestrix::json {

/// A range of numbers, with words for it that continue "is not".
struct SNumberKind {
    double m_Least;
    double m_Most;
    bool m_bLeastIncluded;
    char const* m_pDemand;
};

// What a grid can be made for.
inline constexpr SNumberKind WIDTH_KIND{1e-14, 1e28, true, "a number from 1e-14 to 1e28"};
inline constexpr SNumberKind DISTANCE_KIND{0.0, 1e28, true, "a number from 0 to 1e28"};

inline constexpr double NUMBER_MOST = std::numeric_limits<double>::max();
inline constexpr SNumberKind ANY_KIND{-NUMBER_MOST, NUMBER_MOST, true, "a number"};
inline constexpr SNumberKind POSITIVE_KIND{0.0, NUMBER_MOST, false, "a number above 0"};
inline constexpr SNumberKind SECONDS_KIND{0.0, NUMBER_MOST, false, "a number of seconds above 0"};
inline constexpr SNumberKind SHARE_KIND{0.0, 1.0, false, "a share above 0 and up to 1, such as 0.85"};
inline constexpr SNumberKind PROBABILITY_KIND{0.0, 1.0, true, "a number from 0 to 1"};

// Each of these gives nothing where the value is at fault, which is then among the findings.

[[nodiscard]] std::optional<double> ReadNumber(const CJsonValue& value, const SNumberKind& kind,
                                               CJsonFindings& findings);

/// A whole number, however it is written: 12, 12.0 or 1.2e1.
[[nodiscard]] std::optional<uint64_t> ReadWhole(const CJsonValue& value, uint64_t nLeast, uint64_t nMost,
                                                CJsonFindings& findings);
[[nodiscard]] std::optional<bool> ReadFlag(const CJsonValue& value, CJsonFindings& findings);
[[nodiscard]] std::optional<std::string> ReadText(const CJsonValue& value, CJsonFindings& findings);

/// "mm", "cm", "m", "in", "ft", "pt" or "px".
[[nodiscard]] std::optional<EUnit> ReadUnit(const CJsonValue& value, CJsonFindings& findings);

/// One of some words.
template <class T, size_t nCount>
[[nodiscard]] std::optional<T> ReadNamed(const CJsonValue& value, const CNamedValues<T, nCount>& names,
                                         CJsonFindings& findings) {
    const std::optional<T> named =
        value.Kind() == CJsonValue::EKind::TEXT ? ValueOf(names, value.Text()) : std::nullopt;
    if (!named) {
        findings.Refuse(value, "is none of " + ListOf(names));
    }
    return named;
}

/// "any", or a list of degrees.
[[nodiscard]] std::optional<STurns> ReadTurns(const CJsonValue& value, CJsonFindings& findings);

/// A list of pairs of coordinates.
[[nodiscard]] std::optional<CRing> ReadRing(const CJsonValue& value, CJsonFindings& findings);

/// A list of rings.
[[nodiscard]] std::optional<std::vector<CRing>> ReadRings(const CJsonValue& value, CJsonFindings& findings);

}  // namespace nestrix::json
