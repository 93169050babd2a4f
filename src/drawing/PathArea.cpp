#include "drawing/PathArea.h"

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Twice the area between a stretch and an origin: the integral of P × dP along it.
struct STwiceArea {
    SPoint m_Origin;
    SPoint m_Start;

    double operator()(const SLineTo& line) const { return Cross(m_Start - m_Origin, line.m_End - m_Origin); }
    double operator()(const SArcTo& arc) const {
        return Cross(arc.m_Centre - m_Origin, arc.m_End - m_Start) +
               Cross(arc.m_FirstRadius, arc.m_SecondRadius) * arc.m_Sweep;
    }
    double operator()(const SCurveTo& curve) const {
        const SPoint a = m_Start - m_Origin;
        const SPoint b = curve.m_FirstControl - m_Origin;
        const SPoint c = curve.m_SecondControl - m_Origin;
        const SPoint d = curve.m_End - m_Origin;
        return (6.0 * Cross(a, b) + 3.0 * Cross(a, c) + Cross(a, d) + 3.0 * Cross(b, c) + 3.0 * Cross(b, d) +
                6.0 * Cross(c, d)) /
               10.0;
    }
};

}  // namespace

double SignedArea(const SPath& path) {
    // About the start, so that drawings far from the origin lose nothing.
    double twice = 0.0;
    SPoint from = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        twice += std::visit(STwiceArea{path.m_Start, from}, stretch);
        from = EndOf(stretch);
    }
    return twice / 2.0;
}

}  // namespace nestrix
