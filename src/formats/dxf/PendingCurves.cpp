#include "formats/dxf/PendingCurves.h"

#include <algorithm>
#include <utility>

namespace nestrix {

namespace {

constexpr int POLYLINE_CLOSED = 1;
constexpr int SPLINE_CLOSED = 1;

}  // namespace

CPendingPolyline::CPendingPolyline(SDrawnPath drawn, const SMap& plane, const DL_PolylineData& data)
    : m_Drawn(std::move(drawn)), m_Plane(plane), m_bClosed((data.flags & POLYLINE_CLOSED) != 0) {}

SEndedCurve CPendingPolyline::End() const {
    if (m_Vertices.size() < 2) {
        return {m_Drawn, std::nullopt, SFinding::ESeverity::ODD, "a polyline has fewer than two vertices"};
    }
    return {m_Drawn, m_Plane(PolylinePath(m_Vertices, m_bClosed)), SFinding::ESeverity::FAULT, {}};
}

CPendingSpline::CPendingSpline(SDrawnPath drawn, const DL_SplineData& data) : m_Drawn(std::move(drawn)) {
    m_Curve.m_nDegree = static_cast<int>(std::min<unsigned>(data.degree, HIGHEST_DEGREE + 1));
    m_Fit.m_bClosed = (data.flags & SPLINE_CLOSED) != 0;
    m_Fit.m_StartTangent = SPoint{data.tangentStartX, data.tangentStartY};
    m_Fit.m_EndTangent = SPoint{data.tangentEndX, data.tangentEndY};
}

void CPendingSpline::Add(const DL_ControlPointData& data) {
    m_Curve.m_Controls.push_back({data.x, data.y});
    m_Curve.m_Weights.push_back(data.w);
}

SEndedCurve CPendingSpline::End() const {
    if (m_Curve.m_Controls.empty()) {
        return {m_Drawn, FitPointPath(m_Fit), SFinding::ESeverity::FAULT,
                "a spline has fewer than two different points"};
    }
    const std::string fault = FaultOf(m_Curve);
    return {m_Drawn, fault.empty() ? std::optional(PathOf(m_Curve)) : std::nullopt,
            SFinding::ESeverity::FAULT, fault};
}

}  // namespace nestrix
