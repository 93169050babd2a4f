#include "drawing/SMap.h"

#include <algorithm>
#include <cmath>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

constexpr double DEGREES_IN_A_RADIAN = 57.295779513082321;

/// The map without its shift: what it does to directions and radii.
SMap Linear(const SMap& map) {
    return {map.m_XX, map.m_XY, map.m_YX, map.m_YY, 0.0, 0.0};
}

struct SMappedStretch {
    const SMap& m_Map;

    CStretch operator()(const SLineTo& line) const { return SLineTo{m_Map(line.m_End)}; }
    CStretch operator()(const SArcTo& arc) const {
        const SMap linear = Linear(m_Map);
        return SArcTo{m_Map(arc.m_Centre), linear(arc.m_FirstRadius), linear(arc.m_SecondRadius), arc.m_From,
                      arc.m_Sweep,         m_Map(arc.m_End)};
    }
    CStretch operator()(const SCurveTo& curve) const {
        return SCurveTo{m_Map(curve.m_FirstControl), m_Map(curve.m_SecondControl), m_Map(curve.m_End)};
    }
};

}  // namespace

SPoint SMap::operator()(SPoint point) const {
    return {m_XX * point.m_X + m_XY * point.m_Y + m_X0, m_YX * point.m_X + m_YY * point.m_Y + m_Y0};
}

SPath SMap::operator()(const SPath& path) const {
    SPath mapped{(*this)(path.m_Start), {}, path.m_bClosed};
    mapped.m_Stretches.reserve(path.m_Stretches.size());
    for (const CStretch& stretch : path.m_Stretches) {
        mapped.m_Stretches.push_back(std::visit(SMappedStretch{*this}, stretch));
    }
    return mapped;
}

SDrawnText SMap::operator()(const SDrawnText& text) const {
    const double area = m_XX * m_YY - m_XY * m_YX;
    const SDirection turn = DirectionOf(text.m_Degrees);
    const SPoint reading = SPoint{turn.m_Cosine, turn.m_Sine} * (text.m_bMirrored ? -1.0 : 1.0);
    SDrawnText mapped = text;
    mapped.m_At = (*this)(text.m_At);
    mapped.m_bMirrored = text.m_bMirrored != (area < 0.0);
    // Of letters that are slanted by the map, the base line and the height above it are kept.
    const SPoint base = Linear(*this)(reading);
    const SPoint unmirrored = mapped.m_bMirrored ? -base : base;
    mapped.m_Degrees = std::atan2(unmirrored.m_Y, unmirrored.m_X) * DEGREES_IN_A_RADIAN;
    mapped.m_Height = Length(base) > 0.0 ? text.m_Height * std::abs(area) / Length(base) : 0.0;
    return mapped;
}

SMap operator*(const SMap& first, const SMap& second) {
    const SPoint shift = first(SPoint{second.m_X0, second.m_Y0});
    return {first.m_XX * second.m_XX + first.m_XY * second.m_YX,
            first.m_XX * second.m_XY + first.m_XY * second.m_YY,
            first.m_YX * second.m_XX + first.m_YY * second.m_YX,
            first.m_YX * second.m_XY + first.m_YY * second.m_YY,
            shift.m_X,
            shift.m_Y};
}

SMap MapOf(const SShape& shape, const SFreePacking& packing, const SFreePlacement& placement) {
    SPlaneBox box;
    for (const SPoint& point : shape.m_Outline) {
        box.Include(point);
    }
    const SPoint corner = box.IsEmpty() ? SPoint() : box.m_Low;
    const SDirection turn = DirectionOf(placement.m_Degrees);
    const double mirror = placement.m_bMirrored ? -1.0 : 1.0;
    const SMap toCorner{1.0, 0.0, 0.0, 1.0, -corner.m_X, -corner.m_Y};
    const SMap lay{turn.m_Cosine * mirror,
                   -turn.m_Sine,
                   turn.m_Sine * mirror,
                   turn.m_Cosine,
                   packing.m_Grid.Length(placement.m_At.m_nX),
                   packing.m_Grid.Length(placement.m_At.m_nY)};
    return lay * toCorner;
}

}  // namespace nestrix
