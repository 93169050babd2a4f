#pragma once

#include <dxflib/dl_entities.h>

#include <optional>
#include <string>
#include <vector>

#include "drawing/SDrawing.h"
#include "drawing/SMap.h"
#include "formats/dxf/DxfArcs.h"
#include "formats/dxf/DxfSplines.h"
#include "formats/dxf/FitPointCurve.h"

namespace nestrix {

// Curves of which dxflib tells in several calls: first of the entity, then of its points one by one.

/// What has become of such a curve at its end.
struct SEndedCurve {
    SDrawnPath m_Drawn;           ///< all but the path
    std::optional<SPath> m_Path;  ///< nothing where there is no such curve; then this is why:
    SFinding::ESeverity m_eSeverity = SFinding::ESeverity::FAULT;
    std::string m_Message;
};

/// A polyline of which more vertices may follow.
class CPendingPolyline {
public:
    /// @param drawn what is known of it but for its path.
    /// @param plane that it lies in, seen from above.
    CPendingPolyline(SDrawnPath drawn, const SMap& plane, const DL_PolylineData& data);

    void Add(const DL_VertexData& data) { m_Vertices.push_back({{data.x, data.y}, data.bulge}); }

    [[nodiscard]] SEndedCurve End() const;

private:
    SDrawnPath m_Drawn;
    SMap m_Plane;
    bool m_bClosed;
    std::vector<SBulgeVertex> m_Vertices;
};

/// A spline of which more numbers may follow.
class CPendingSpline {
public:
    /// @param drawn what is known of it but for its path.
    CPendingSpline(SDrawnPath drawn, const DL_SplineData& data);

    void Add(const DL_ControlPointData& data);
    void Add(const DL_FitPointData& data) { m_Fit.m_Points.push_back({data.x, data.y}); }
    void Add(const DL_KnotData& data) { m_Curve.m_Knots.push_back(data.k); }

    [[nodiscard]] SEndedCurve End() const;

private:
    SDrawnPath m_Drawn;
    SSpline m_Curve;
    SFitPoints m_Fit;  ///< taken where there are no control points
};

}  // namespace nestrix
