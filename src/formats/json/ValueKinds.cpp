#include "formats/json/ValueKinds.h"

#include <iterator>

namespace nestrix::json {

namespace {

using EKind = CJsonValue::EKind;

/// Above this, doubles are whole numbers only because they have no digits left for a fraction.
constexpr double WHOLE_DOUBLE_MOST = 9007199254740992.0;  // 2^53

bool IsNumber(const CJsonValue& value) {
    return value.Kind() == EKind::NUMBER || value.Kind() == EKind::WHOLE;
}

std::optional<uint64_t> WholeOf(const CJsonValue& value) {
    if (value.Kind() == EKind::WHOLE) {
        return value.Whole();
    }
    if (value.Kind() != EKind::NUMBER || !(value.Number() >= 0.0 && value.Number() <= WHOLE_DOUBLE_MOST)) {
        return std::nullopt;
    }
    const auto nWhole = static_cast<uint64_t>(value.Number());
    return static_cast<double>(nWhole) == value.Number() ? std::optional(nWhole) : std::nullopt;
}

std::optional<SPoint> ReadPoint(const CJsonValue& value, CJsonFindings& findings) {
    const CJsonElements pair = value.Elements();
    if (std::distance(pair.begin(), pair.end()) != 2) {
        findings.Refuse(value, "is not a pair [x, y]");
        return std::nullopt;
    }
    const auto second = std::next(pair.begin());
    const std::optional<double> x = ReadNumber(*pair.begin(), ANY_KIND, findings);
    const std::optional<double> y = ReadNumber(*second, ANY_KIND, findings);
    return x && y ? std::optional(SPoint{*x, *y}) : std::nullopt;
}

/// Each element of a list by one reader, up to the first that is at fault: whoever has written a list wrongly
/// has done so all along.
template <class TElement>
std::optional<std::vector<TElement>> ReadList(const CJsonValue& value, char const* pDemand,
                                              CJsonFindings& findings,
                                              std::optional<TElement> (*pRead)(const CJsonValue&,
                                                                               CJsonFindings&)) {
    if (value.Kind() != EKind::ARRAY) {
        findings.Refuse(value, pDemand);
        return std::nullopt;
    }
    std::vector<TElement> list;
    for (const CJsonValue& element : value.Elements()) {
        std::optional<TElement> read = pRead(element, findings);
        if (!read) {
            return std::nullopt;
        }
        list.push_back(std::move(*read));
    }
    return list;
}

std::optional<double> ReadDegrees(const CJsonValue& value, CJsonFindings& findings) {
    return ReadNumber(value, ANY_KIND, findings);
}

}  // namespace

std::optional<double> ReadNumber(const CJsonValue& value, const SNumberKind& kind, CJsonFindings& findings) {
    const double number = IsNumber(value) ? value.Number() : 0.0;
    const bool bWithin =
        number <= kind.m_Most && (kind.m_bLeastIncluded ? number >= kind.m_Least : number > kind.m_Least);
    if (!IsNumber(value) || !bWithin) {
        findings.Refuse(value, std::string("is not ") + kind.m_pDemand);
        return std::nullopt;
    }
    return number;
}

std::optional<uint64_t> ReadWhole(const CJsonValue& value, uint64_t nLeast, uint64_t nMost,
                                  CJsonFindings& findings) {
    const std::optional<uint64_t> whole = WholeOf(value);
    if (!whole || *whole < nLeast || *whole > nMost) {
        findings.Refuse(
            value, "is not a whole number from " + std::to_string(nLeast) + " to " + std::to_string(nMost));
        return std::nullopt;
    }
    return whole;
}

std::optional<bool> ReadFlag(const CJsonValue& value, CJsonFindings& findings) {
    if (value.Kind() != EKind::YES && value.Kind() != EKind::NO) {
        findings.Refuse(value, "is neither true nor false");
        return std::nullopt;
    }
    return value.Kind() == EKind::YES;
}

std::optional<std::string> ReadText(const CJsonValue& value, CJsonFindings& findings) {
    if (value.Kind() != EKind::TEXT) {
        findings.Refuse(value, "is not a text");
        return std::nullopt;
    }
    return std::string(value.Text());
}

std::optional<EUnit> ReadUnit(const CJsonValue& value, CJsonFindings& findings) {
    const std::optional<EUnit> unit = value.Kind() == EKind::TEXT ? FindUnit(value.Text()) : std::nullopt;
    if (!unit) {
        findings.Refuse(value, "is none of the units mm, cm, m, in, ft, pt, px");
    }
    return unit;
}

std::optional<STurns> ReadTurns(const CJsonValue& value, CJsonFindings& findings) {
    if (value.Kind() == EKind::TEXT && value.Text() == "any") {
        return STurns{true, {}};
    }
    std::optional<std::vector<double>> degrees = ReadList(
        value, R"(is neither "any" nor a list of degrees, such as [0, 90, 180, 270])", findings, ReadDegrees);
    return degrees ? std::optional(STurns{false, std::move(*degrees)}) : std::nullopt;
}

std::optional<CRing> ReadRing(const CJsonValue& value, CJsonFindings& findings) {
    return ReadList(value, "is not a list of points [x, y]", findings, ReadPoint);
}

std::optional<std::vector<CRing>> ReadRings(const CJsonValue& value, CJsonFindings& findings) {
    return ReadList(value, "is not a list of rings", findings, ReadRing);
}

}  // namespace nestrix::json
