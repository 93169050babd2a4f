#include "formats/svg/SvgValues.h"

#include <algorithm>
#include <string>
#include <svgpp/parser/external_function/parse_misc_impl.hpp>
#include <svgpp/parser/external_function/parse_preserveAspectRatio_impl.hpp>
#include <svgpp/parser/grammar/coordinate_pair.hpp>
#include <svgpp/parser/grammar/length.hpp>
#include <svgpp/parser/grammar/preserveAspectRatio.hpp>
#include <svgpp/parser/grammar/transform.hpp>
#include <svgpp/policy/transform_events.hpp>

#include "formats/svg/SvgNumbers.h"
#include "packing/SGrid.h"

namespace nestrix {

namespace {

namespace qi = boost::spirit::qi;
namespace units = svgpp::tag::length_units;

constexpr double INCH = 25.4;

std::string_view Trimmed(std::string_view text) {
    constexpr std::string_view SPACE = " \t\r\n\f";
    const size_t nFirst = text.find_first_not_of(SPACE);
    return nFirst == text.npos ? "" : text.substr(nFirst, text.find_last_not_of(SPACE) - nFirst + 1);
}

/// Whether `parse` takes all of the text.
template <class TParse>
bool IsWhole(std::string_view text, TParse parse) {
    const std::string_view trimmed = Trimmed(text);
    if (trimmed.empty() || SoundNumbersUpTo(trimmed) < trimmed.size()) {
        return false;
    }
    char const* pAt = trimmed.data();
    char const* const pEnd = pAt + trimmed.size();
    return parse(pAt, pEnd) && pAt == pEnd;
}

// NOLINTBEGIN(readability-identifier-naming): the library has named these operations

/// Makes the lengths that the library's grammar finds.
struct SLengthFactory {
    using length_type = SSvgLength;
    using number_type = double;
    using EKind = SSvgLength::EKind;

    static SSvgLength create_length(double value, units::none) { return {value, EKind::USER}; }
    static SSvgLength create_length(double value, units::px) { return {value, EKind::USER}; }
    static SSvgLength create_length(double value, units::mm) { return {value, EKind::MILLIMETRE}; }
    static SSvgLength create_length(double value, units::cm) { return {value * 10.0, EKind::MILLIMETRE}; }
    static SSvgLength create_length(double value, units::in) { return {value * INCH, EKind::MILLIMETRE}; }
    static SSvgLength create_length(double value, units::pt) {
        return {value * INCH / 72.0, EKind::MILLIMETRE};
    }
    static SSvgLength create_length(double value, units::pc) {
        return {value * INCH / 6.0, EKind::MILLIMETRE};
    }
    static SSvgLength create_length(double value, units::em) { return {value, EKind::EM}; }
    static SSvgLength create_length(double value, units::ex) { return {value, EKind::EX}; }
    template <class TDimension>
    static SSvgLength create_length(double value, units::percent, TDimension) {
        return {value, EKind::PERCENT};
    }
};

/// Takes what the grammar of transforms finds; the first of a list is the outermost.
class CTransforms {
public:
    void transform_matrix(const boost::array<double, 6>& m) { Append({m[0], m[2], m[1], m[3], m[4], m[5]}); }
    void transform_translate(double x, double y) { Append({1.0, 0.0, 0.0, 1.0, x, y}); }
    void transform_translate(double x) { transform_translate(x, 0.0); }
    void transform_scale(double x, double y) { Append({x, 0.0, 0.0, y, 0.0, 0.0}); }
    void transform_scale(double factor) { transform_scale(factor, factor); }
    void transform_rotate(double degrees) {
        const SDirection to = DirectionOf(degrees);
        Append({to.m_Cosine, -to.m_Sine, to.m_Sine, to.m_Cosine, 0.0, 0.0});
    }
    void transform_rotate(double degrees, double x, double y) {
        transform_translate(x, y);
        transform_rotate(degrees);
        transform_translate(-x, -y);
    }
    void transform_skew_x(double degrees) { Append({1.0, Tangent(degrees), 0.0, 1.0, 0.0, 0.0}); }
    void transform_skew_y(double degrees) { Append({1.0, 0.0, Tangent(degrees), 1.0, 0.0, 0.0}); }

    [[nodiscard]] const SMap& Map() const { return m_Map; }

private:
    static double Tangent(double degrees) {
        const SDirection to = DirectionOf(degrees);
        return to.m_Sine / to.m_Cosine;
    }
    void Append(const SMap& inner) { m_Map = m_Map * inner; }

    SMap m_Map;
};

// NOLINTEND(readability-identifier-naming)

using CLengthGrammar = svgpp::length_grammar<svgpp::tag::source::attribute, char const*, SLengthFactory>;
using CTransformGrammar =
    svgpp::transform_grammar<char const*, CTransforms, double,
                             svgpp::policy::transform_events::forward_to_method<CTransforms>>;
using CPointGrammar = svgpp::coordinate_pair_grammar<char const*, double>;
using CSeparator = svgpp::detail::comma_wsp_rule_no_skip<char const*>;

double AlongX(svgpp::preserveAspectRatio_value::align_type eAlign) {
    using EAlign = svgpp::preserveAspectRatio_value;
    switch (eAlign) {
        case EAlign::xMinYMin:
        case EAlign::xMinYMid:
        case EAlign::xMinYMax:
            return 0.0;
        case EAlign::xMaxYMin:
        case EAlign::xMaxYMid:
        case EAlign::xMaxYMax:
            return 1.0;
        default:
            return 0.5;
    }
}

double AlongY(svgpp::preserveAspectRatio_value::align_type eAlign) {
    using EAlign = svgpp::preserveAspectRatio_value;
    switch (eAlign) {
        case EAlign::xMinYMin:
        case EAlign::xMidYMin:
        case EAlign::xMaxYMin:
            return 0.0;
        case EAlign::xMinYMax:
        case EAlign::xMidYMax:
        case EAlign::xMaxYMax:
            return 1.0;
        default:
            return 0.5;
    }
}

}  // namespace

std::optional<SSvgLength> ParseLength(std::string_view text) {
    static const CLengthGrammar s_Grammar;
    static const SLengthFactory s_Factory;
    std::string lower(text);  // units may be written in capitals, too
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
    SSvgLength length;
    const bool bWhole = IsWhole(lower, [&length](char const*& pAt, char const* pEnd) {
        return qi::parse(pAt, pEnd, s_Grammar(boost::phoenix::cref(s_Factory)), length);
    });
    return bWhole ? std::optional(length) : std::nullopt;
}

std::optional<SSvgBox> ParseViewBox(std::string_view text) {
    SSvgBox box;
    const bool bWhole = IsWhole(text, [&box](char const*& pAt, char const* pEnd) {
        return svgpp::detail::parse_viewBox(pAt, pEnd, box.m_X, box.m_Y, box.m_Width, box.m_Height);
    });
    return bWhole ? std::optional(box) : std::nullopt;
}

std::optional<SSvgAspect> ParseAspect(std::string_view text) {
    svgpp::preserveAspectRatio_value value{};
    const bool bWhole = IsWhole(text, [&value](char const*& pAt, char const* pEnd) {
        return svgpp::detail::parse_preserveAspectRatio(pAt, pEnd, value);
    });
    if (!bWhole) {
        return std::nullopt;
    }
    return SSvgAspect{value.align == svgpp::preserveAspectRatio_value::none, value.slice, AlongX(value.align),
                      AlongY(value.align)};
}

std::optional<SMap> ParseTransform(std::string_view text) {
    static const CTransformGrammar s_Grammar;
    CTransforms transforms;
    const bool bWhole = IsWhole(text, [&transforms](char const*& pAt, char const* pEnd) {
        return qi::phrase_parse(pAt, pEnd, s_Grammar(boost::phoenix::ref(transforms)),
                                CTransformGrammar::skipper_type());
    });
    return bWhole ? std::optional(transforms.Map()) : std::nullopt;
}

std::optional<std::vector<SPoint>> ParsePoints(std::string_view text) {
    static const CPointGrammar s_Pair;
    static const CSeparator s_Separator;
    std::vector<SPoint> points;
    const bool bWhole = IsWhole(text, [&points](char const*& pAt, char const* pEnd) {
        do {
            std::pair<double, double> pair;
            if (!qi::parse(pAt, pEnd, s_Pair, pair)) {
                return false;
            }
            points.push_back({pair.first, pair.second});
        } while (qi::parse(pAt, pEnd, s_Separator));
        return true;
    });
    return bWhole ? std::optional(std::move(points)) : std::nullopt;
}

}  // namespace nestrix
