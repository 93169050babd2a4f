#include "drawing/FlatPart.h"

#include <cmath>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Of a curve's size: what is nearer than this to a straight line is one.
constexpr double STRAIGHT = 1e-13;

constexpr int NEWTON_STEPS = 4;

/// How far a curve that turns one way is from the chord of a part.
double ChordError(const CCurve& curve, SRange part) {
    const SPoint from = curve.At(part.m_From);
    const SPoint chord = curve.At(part.m_To) - from;
    const double length = Length(chord);
    if (length == 0.0) {
        return Length(curve.At(part.Middle()) - from);
    }
    // Where the curve runs along the chord, it is farthest from it.
    double t = part.Middle();
    for (int i = 0; i < NEWTON_STEPS; ++i) {
        const double slope = Cross(curve.Second(t), chord);
        if (slope == 0.0) {
            break;
        }
        t = part.Clamped(t - Cross(curve.First(t), chord) / slope);
    }
    const double middle = std::abs(Cross(chord, curve.At(part.Middle()) - from));
    return std::max(middle, std::abs(Cross(chord, curve.At(t) - from))) / length;
}

/// How far a point is from a part of a curve, or a little more.
double DistanceTo(const CCurve& curve, SRange part, SPoint point) {
    double t = part.Middle();
    double least = Length(curve.At(t) - point);
    for (int i = 0; i < NEWTON_STEPS; ++i) {
        const SPoint first = curve.First(t);
        const SPoint away = curve.At(t) - point;
        const double slope = Dot(first, first) + Dot(away, curve.Second(t));
        if (!(slope > 0.0)) {
            break;
        }
        t = part.Clamped(t - Dot(away, first) / slope);
        least = std::min(least, Length(curve.At(t) - point));
    }
    return least;
}

SPoint Unit(SPoint vector) {
    const double length = Length(vector);
    return length > 0.0 ? vector * (1.0 / length) : vector;
}

}  // namespace

SFlatPart Flat(const CCurve& curve, SRange part, EEdges eEdges) {
    const SPoint out = Unit(curve.Direction(part.m_From, true));
    const SPoint in = -Unit(curve.Direction(part.m_To, false));
    if (Dot(out, in) < 0.0) {
        return {true, std::nullopt};
    }
    if (eEdges == EEdges::CHORDS) {
        return {};
    }
    const SPoint from = curve.At(part.m_From);
    const SPoint chord = curve.At(part.m_To) - from;
    const double turn = Cross(out, in);
    if (std::abs(Cross(out, chord)) <= STRAIGHT * curve.Size() || turn == 0.0) {
        return {};
    }
    const double along = Cross(chord, in) / turn;
    const double back = Cross(out, chord) / turn;
    if (along <= 0.0 || back <= 0.0) {
        return {true, std::nullopt};
    }
    return {false, from + out * along};
}

double ErrorOf(const CCurve& curve, SRange part, EEdges eEdges) {
    const SFlatPart flat = Flat(curve, part, eEdges);
    if (flat.m_bTurnsTooFar) {
        return HUGE_VAL;
    }
    return flat.m_Corner.has_value() ? DistanceTo(curve, part, *flat.m_Corner) : ChordError(curve, part);
}

}  // namespace nestrix
