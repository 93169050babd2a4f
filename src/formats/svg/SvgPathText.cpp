#include "formats/svg/SvgPathText.h"

#include <cmath>

#include "base/NumberText.h"
#include "formats/svg/SvgArc.h"

namespace nestrix {

namespace {

/// Up to here each whole number is a double.
constexpr double MOST_UNITS = 9007199254740992.0;

/// Radii this near each other are a circle's, which has no turn.
constexpr double ROUND = 1e-9;

class CPathText {
public:
    CPathText(const CLengthText& lengthText, SPoint start) : m_LengthText(lengthText) { Append("M", start); }

    void operator()(const SLineTo& line) { Append(" L", line.m_End); }
    void operator()(const SArcTo& arc) {
        for (const SArcTo& part : InQuarters(arc)) {
            AppendArc(part);
        }
    }
    void operator()(const SCurveTo& curve) {
        Append(" C", curve.m_FirstControl);
        Append(" ", curve.m_SecondControl);
        Append(" ", curve.m_End);
    }

    [[nodiscard]] const std::string& Text() const { return m_Text; }

private:
    void Append(char const* pBefore, SPoint point) {
        m_Text.append(pBefore).append(m_LengthText(point.m_X)).append(",").append(m_LengthText(point.m_Y));
    }

    void AppendArc(const SArcTo& part) {
        SSvgArc arc = SvgArcOf(part);
        if (std::abs(arc.m_FirstRadius - arc.m_SecondRadius) <= ROUND * arc.m_FirstRadius) {
            arc.m_SecondRadius = arc.m_FirstRadius;
            arc.m_Degrees = 0.0;
        }
        Append(" A", {arc.m_FirstRadius, arc.m_SecondRadius});
        m_Text.append(" ").append(ShortestDigits(arc.m_Degrees)).append(arc.m_bForward ? " 0 1" : " 0 0");
        Append(" ", part.m_End);
    }

    const CLengthText& m_LengthText;
    std::string m_Text;
};

}  // namespace

CLengthText::CLengthText(int nDecimals) : m_UnitsInOne(std::pow(10.0, nDecimals)) {}

std::string CLengthText::operator()(double length) const {
    const double units = std::round(length * m_UnitsInOne);
    // Adding zero turns a negative zero into the plain one.
    return ShortestDigits(std::abs(units) < MOST_UNITS ? units / m_UnitsInOne + 0.0 : length);
}

std::string PathDataOf(const SPath& path, const CLengthText& lengthText) {
    CPathText text(lengthText, path.m_Start);
    for (const CStretch& stretch : path.m_Stretches) {
        std::visit(text, stretch);
    }
    return text.Text() + (path.m_bClosed ? " Z" : "");
}

}  // namespace nestrix
