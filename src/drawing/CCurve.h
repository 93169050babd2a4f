#pragma once

#include <variant>
#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// An arc or a Bezier curve as a function of a parameter, with its derivatives.
class CCurve {
public:
    CCurve(SPoint start, const SCurveTo& curve);
    explicit CCurve(const SArcTo& arc);

    [[nodiscard]] double From() const { return m_From; }
    [[nodiscard]] double To() const { return m_To; }  ///< below From for an arc that runs backwards

    [[nodiscard]] SPoint At(double t) const;
    [[nodiscard]] SPoint First(double t) const;   ///< derivative
    [[nodiscard]] SPoint Second(double t) const;  ///< derivative

    /// Where the curve goes from t on; towards To if `bOn`, else towards From. Of no certain length, and 0, 0
    /// only if the curve is a point. Also right in a cusp, where the derivative is 0.
    [[nodiscard]] SPoint Direction(double t, bool bOn) const;

    /// About the size of the curve: what is small beside it is rounding.
    [[nodiscard]] double Size() const { return m_Size; }

    [[nodiscard]] bool IsStraight() const { return m_bStraight; }
    [[nodiscard]] bool IsCircular() const { return m_bCircular; }

    /// Parameters from From to To, these included, between which the curve turns one way only; the tip of a
    /// cusp is among them. If it is straight, it does not run back between them.
    [[nodiscard]] std::vector<double> Ends() const;

private:
    struct SBezier {
        SPoint m_Start;  ///< the curve is this + first · t + second · t² + third · t³
        SPoint m_First;
        SPoint m_Second;
        SPoint m_Third;
    };
    struct SEllipse {
        SPoint m_Centre;
        SPoint m_First;
        SPoint m_Second;
    };

    [[nodiscard]] std::vector<double> Turnings(const SBezier& bezier) const;
    [[nodiscard]] std::vector<double> Turnings(const SEllipse& ellipse) const;

    std::variant<SBezier, SEllipse> m_Curve;
    double m_From = 0.0;
    double m_To = 1.0;
    double m_Size = 0.0;
    bool m_bStraight = false;
    bool m_bCircular = false;
};

}  // namespace nestrix
