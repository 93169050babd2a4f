#include "formats/dxf/DxfArcs.h"

#include <cmath>
#include <numbers>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

constexpr double WHOLE_TURN = 2.0 * std::numbers::pi;

/// An arc with less of a bulge than this leaves its chord by less than a billionth of its length, while its
/// centre is too far away to be of any use.
constexpr double LEAST_BULGE = 1e-9;

/// A sweep this near a whole turn was meant to be one; writers round the angles.
constexpr double NEARLY_NOTHING = 1e-9;

CStretch BulgedStretch(const SBulgeVertex& from, SPoint to) {
    if (std::abs(from.m_Bulge) < LEAST_BULGE || from.m_At == to) {
        return SLineTo{to};
    }
    const SPoint half = (to - from.m_At) * 0.5;
    // The centre's distance from the chord's middle, to its left, in halves of the chord: the cotangent of
    // half the sweep.
    const double left = (1.0 - from.m_Bulge * from.m_Bulge) / (2.0 * from.m_Bulge);
    const SPoint radius{-half.m_X + left * half.m_Y, -half.m_Y - left * half.m_X};
    return SArcTo{
        from.m_At - radius, radius, {-radius.m_Y, radius.m_X}, 0.0, 4.0 * std::atan(from.m_Bulge), to};
}

SPoint PointOf(const SArcTo& arc, double cosine, double sine) {
    return arc.m_Centre + arc.m_FirstRadius * cosine + arc.m_SecondRadius * sine;
}

/// What leads from one angle up to the other.
double SweepOf(double from, double to, double wholeTurn) {
    double sweep = std::fmod(to - from, wholeTurn);
    if (sweep < NEARLY_NOTHING * wholeTurn) {
        sweep += wholeTurn;
    }
    return sweep < NEARLY_NOTHING * wholeTurn || sweep > (1.0 - NEARLY_NOTHING) * wholeTurn ? wholeTurn
                                                                                            : sweep;
}

}  // namespace

SPath PolylinePath(std::span<const SBulgeVertex> vertices, bool bClosed) {
    SPath path{vertices.front().m_At, {}, bClosed};
    path.m_Stretches.reserve(vertices.size());
    for (size_t i = 0; i + 1 < vertices.size(); ++i) {
        path.m_Stretches.push_back(BulgedStretch(vertices[i], vertices[i + 1].m_At));
    }
    const SBulgeVertex& last = vertices.back();
    if (bClosed && last.m_At != path.m_Start) {
        path.m_Stretches.push_back(BulgedStretch(last, path.m_Start));
    }
    return path;
}

SPath CirclePath(SPoint centre, double radius) {
    return ArcPath(centre, radius, 0.0, 0.0);
}

SPath ArcPath(SPoint centre, double radius, double fromDegrees, double toDegrees) {
    const SDirection from = DirectionOf(fromDegrees);
    const SPoint first{radius * from.m_Cosine, radius * from.m_Sine};
    const double sweep = SweepOf(fromDegrees, toDegrees, 360.0);
    SArcTo arc{centre, first, {-first.m_Y, first.m_X}, 0.0, sweep * (WHOLE_TURN / 360.0), {}};
    const SPoint start = PointOf(arc, 1.0, 0.0);
    const SDirection turn = DirectionOf(sweep);
    arc.m_End = PointOf(arc, turn.m_Cosine, turn.m_Sine);
    return {start, {arc}, sweep == 360.0};
}

SPath EllipsePath(SPoint centre, SPoint firstRadius, SPoint secondRadius, double from, double to) {
    const double sweep = SweepOf(from, to, WHOLE_TURN);
    SArcTo arc{centre, firstRadius, secondRadius, from, sweep, {}};
    const SPoint start = PointOf(arc, std::cos(from), std::sin(from));
    const bool bWhole = sweep == WHOLE_TURN;
    arc.m_End = bWhole ? start : PointOf(arc, std::cos(from + sweep), std::sin(from + sweep));
    return {start, {arc}, bWhole};
}

}  // namespace nestrix
