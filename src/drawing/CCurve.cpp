#include "drawing/CCurve.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// What is smaller than this beside the curve's size is rounding.
constexpr double ROUNDING = 1e-12;

/// The roots of a + b · t + c · t². Where they are not real, the place nearest to a root: of a curve's
/// turning, that is where a cusp would be, and where the curve is bent most.
std::vector<double> Roots(double a, double b, double c) {
    if (c == 0.0) {
        return b == 0.0 ? std::vector<double>() : std::vector<double>{-a / b};
    }
    const double discriminant = b * b - 4.0 * a * c;
    if (discriminant <= 0.0) {
        return {-b / (2.0 * c)};
    }
    // Without the difference of two nearly equal numbers.
    const double sum = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
    return sum == 0.0 ? std::vector<double>{0.0} : std::vector<double>{sum / c, a / sum};
}

}  // namespace

CCurve::CCurve(SPoint start, const SCurveTo& curve) {
    const SPoint first = curve.m_FirstControl - start;
    const SPoint second = curve.m_SecondControl - start;
    const SPoint end = curve.m_End - start;
    const SBezier bezier{start, first * 3.0, second * 3.0 - first * 6.0, end - second * 3.0 + first * 3.0};
    m_Size = std::max({Length(first), Length(second), Length(end)});
    const double turn = std::max({std::abs(Cross(bezier.m_First, bezier.m_Second)),
                                  std::abs(Cross(bezier.m_First, bezier.m_Third)),
                                  std::abs(Cross(bezier.m_Second, bezier.m_Third))});
    m_bStraight = turn <= ROUNDING * m_Size * m_Size;
    m_Curve = bezier;
}

CCurve::CCurve(const SArcTo& arc)
    : m_Curve(SEllipse{arc.m_Centre, arc.m_FirstRadius, arc.m_SecondRadius}),
      m_From(arc.m_From),
      m_To(arc.m_From + arc.m_Sweep) {
    const double first = Length(arc.m_FirstRadius);
    const double second = Length(arc.m_SecondRadius);
    m_Size = std::max(first, second);
    const double tiny = ROUNDING * m_Size * m_Size;
    m_bStraight = std::abs(Cross(arc.m_FirstRadius, arc.m_SecondRadius)) <= tiny;
    m_bCircular = std::abs(Dot(arc.m_FirstRadius, arc.m_SecondRadius)) <= tiny &&
                  std::abs(first - second) <= ROUNDING * m_Size;
}

SPoint CCurve::At(double t) const {
    if (const auto* pBezier = std::get_if<SBezier>(&m_Curve)) {
        return pBezier->m_Start + (pBezier->m_First + (pBezier->m_Second + pBezier->m_Third * t) * t) * t;
    }
    const auto& ellipse = std::get<SEllipse>(m_Curve);
    return ellipse.m_Centre + ellipse.m_First * std::cos(t) + ellipse.m_Second * std::sin(t);
}

SPoint CCurve::First(double t) const {
    if (const auto* pBezier = std::get_if<SBezier>(&m_Curve)) {
        return pBezier->m_First + (pBezier->m_Second * 2.0 + pBezier->m_Third * (3.0 * t)) * t;
    }
    const auto& ellipse = std::get<SEllipse>(m_Curve);
    return ellipse.m_Second * std::cos(t) - ellipse.m_First * std::sin(t);
}

SPoint CCurve::Second(double t) const {
    if (const auto* pBezier = std::get_if<SBezier>(&m_Curve)) {
        return pBezier->m_Second * 2.0 + pBezier->m_Third * (6.0 * t);
    }
    const auto& ellipse = std::get<SEllipse>(m_Curve);
    return -(ellipse.m_First * std::cos(t)) - ellipse.m_Second * std::sin(t);
}

SPoint CCurve::Direction(double t, bool bOn) const {
    const double sign = bOn == (m_To >= m_From) ? 1.0 : -1.0;
    const SPoint first = First(t);
    if (Length(first) > ROUNDING * m_Size) {
        return first * sign;
    }
    const SPoint second = Second(t);
    if (Length(second) > ROUNDING * m_Size) {
        return second;
    }
    const auto* pBezier = std::get_if<SBezier>(&m_Curve);
    return pBezier != nullptr ? pBezier->m_Third * sign : SPoint();
}

std::vector<double> CCurve::Turnings(const SBezier& bezier) const {
    if (!m_bStraight) {
        // Where first × second derivative, a quadratic polynomial but for a factor, is 0.
        return Roots(Cross(bezier.m_First, bezier.m_Second), 3.0 * Cross(bezier.m_First, bezier.m_Third),
                     3.0 * Cross(bezier.m_Second, bezier.m_Third));
    }
    const SPoint along = std::max({bezier.m_First, bezier.m_Second, bezier.m_Third},
                                  [](SPoint a, SPoint b) { return Dot(a, a) < Dot(b, b); });
    return Roots(Dot(bezier.m_First, along), 2.0 * Dot(bezier.m_Second, along),
                 3.0 * Dot(bezier.m_Third, along));
}

std::vector<double> CCurve::Turnings(const SEllipse& ellipse) const {
    if (!m_bStraight || m_Size == 0.0) {
        return {};
    }
    const SPoint along =
        Length(ellipse.m_First) >= Length(ellipse.m_Second) ? ellipse.m_First : ellipse.m_Second;
    const double tip = std::atan2(Dot(ellipse.m_Second, along), Dot(ellipse.m_First, along));
    const double low = std::min(m_From, m_To);
    std::vector<double> tips;
    for (double t = tip + std::ceil((low - tip) / std::numbers::pi) * std::numbers::pi;
         t < std::max(m_From, m_To) && tips.size() < 4; t += std::numbers::pi) {
        tips.push_back(t);
    }
    return tips;
}

std::vector<double> CCurve::Ends() const {
    std::vector<double> ends{m_From, m_To};
    for (const double t : std::visit([this](const auto& curve) { return Turnings(curve); }, m_Curve)) {
        if (std::min(m_From, m_To) < t && t < std::max(m_From, m_To)) {
            ends.push_back(t);
        }
    }
    std::sort(ends.begin(), ends.end());
    if (m_To < m_From) {
        std::reverse(ends.begin(), ends.end());
    }
    return ends;
}

}  // namespace nestrix
