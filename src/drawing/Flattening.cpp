#include "drawing/Flattening.h"

#include <algorithm>
#include <cmath>
#include <optional>

#include "drawing/CCurve.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Of a curve's size: finer than this nothing is flattened, so that a huge arc does not fill the memory.
constexpr double FINEST = 1e-8;

/// Of a curve's size: what is nearer than this to a straight line is one.
constexpr double STRAIGHT = 1e-13;

/// Of a path's extent: an end this near to the start is the start, but for the rounding of sums.
constexpr double ROUNDING_OF_ENDS = 1e-12;

/// How edges follow a curve.
enum class EEdges { CHORDS, TANGENTS };

/// A vertex of a flattened path.
struct SVertex {
    SPoint m_At;
    bool m_bJoint = false;  ///< the end of a tangent: of no use where the line goes straight on
};

/// Within which parameters an iteration for a part of a curve stays.
struct SRange {
    double m_From;
    double m_To;

    [[nodiscard]] double Clamped(double t) const {
        return std::clamp(t, std::min(m_From, m_To), std::max(m_From, m_To));
    }
    [[nodiscard]] double Middle() const { return (m_From + m_To) / 2.0; }
};

/// What stands for a part of a curve.
struct SFlatPart {
    std::optional<SPoint> m_Corner;  ///< of two tangents; absent: a straight line to the part's end
    double m_Error = 0.0;
};

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

/// @return nothing if the part turns too far to be flattened as one.
std::optional<SFlatPart> Flat(const CCurve& curve, SRange part, EEdges eEdges) {
    const SPoint from = curve.At(part.m_From);
    const SPoint to = curve.At(part.m_To);
    const SPoint out = Unit(curve.Direction(part.m_From, true));
    const SPoint in = -Unit(curve.Direction(part.m_To, false));
    if (Dot(out, in) < 0.0) {
        return std::nullopt;
    }
    if (eEdges == EEdges::CHORDS) {
        return SFlatPart{std::nullopt, ChordError(curve, part)};
    }
    const double turn = Cross(out, in);
    const double along = turn == 0.0 ? 0.0 : Cross(to - from, in) / turn;
    const double back = turn == 0.0 ? 0.0 : Cross(out, to - from) / turn;
    const double height = std::abs(Cross(out, to - from));
    if (height <= STRAIGHT * curve.Size() || turn == 0.0) {
        return SFlatPart{std::nullopt, ChordError(curve, part)};
    }
    if (along <= 0.0 || back <= 0.0) {
        return std::nullopt;
    }
    const SPoint corner = from + out * along;
    return SFlatPart{corner, DistanceTo(curve, part, corner)};
}

/// Flattens one curve into a list of vertices that ends with the curve's start.
class CCurveFlattening {
public:
    CCurveFlattening(const CCurve& curve, double tolerance, std::vector<SVertex>& vertices)
        : m_Curve(curve), m_Tolerance(std::max(tolerance, FINEST * curve.Size())), m_Vertices(vertices) {}

    /// @param end as it was drawn.
    void Append(std::optional<ESide> eMaterial, SPoint end) {
        const std::vector<double> ends = m_Curve.Ends();
        for (size_t i = 0; i + 1 < ends.size(); ++i) {
            const SRange part{ends[i], ends[i + 1]};
            const bool bLast = i + 2 == ends.size();
            if (!m_Curve.IsStraight()) {
                AppendTurning(part, EdgesFor(part, eMaterial));
            }
            AppendEnd(bLast ? end : m_Curve.At(part.m_To));
        }
    }

private:
    [[nodiscard]] EEdges EdgesFor(SRange part, std::optional<ESide> eMaterial) const {
        const double t = part.Middle();
        const double turn = Cross(m_Curve.First(t), m_Curve.Second(t)) * (part.m_To - part.m_From);
        return eMaterial.has_value() && (turn > 0.0) == (*eMaterial == ESide::LEFT) ? EEdges::TANGENTS
                                                                                    : EEdges::CHORDS;
    }

    /// Appends what is between the ends of a part.
    void AppendTurning(SRange part, EEdges eEdges) {
        if (!m_Vertices.empty() && eEdges == EEdges::TANGENTS) {
            m_Vertices.back().m_bJoint = true;
        }
        m_bJointEnd = eEdges == EEdges::TANGENTS;
        const int nEqual = m_Curve.IsCircular() ? EqualParts(part, eEdges) : 0;
        double from = part.m_From;
        for (int i = 1; from != part.m_To; ++i) {
            const double to = nEqual == 0   ? Farthest({from, part.m_To}, eEdges)
                              : i == nEqual ? part.m_To
                                            : part.m_From + (part.m_To - part.m_From) * i / nEqual;
            const std::optional<SFlatPart> flat = Flat(m_Curve, {from, to}, eEdges);
            if (flat.has_value() && flat->m_Corner.has_value()) {
                m_Vertices.push_back({*flat->m_Corner});
            } else if (to != part.m_To && (!flat.has_value() || eEdges == EEdges::CHORDS)) {
                m_Vertices.push_back({m_Curve.At(to)});
            }
            from = to;
        }
    }

    /// Into how many equal parts an arc of a circle is cut: where it is flattened the same everywhere.
    [[nodiscard]] int EqualParts(SRange part, EEdges eEdges) const {
        const double share = m_Tolerance / m_Curve.Size();
        const double halfTurn =
            std::acos(eEdges == EEdges::TANGENTS ? 1.0 / (1.0 + share) : std::max(1.0 - share, 0.0));
        // No more than an eighth: for fewer, the polygon would hardly be of the circle's form.
        const double most = std::min(2.0 * halfTurn, std::acos(0.0) / 2.0);
        return std::max(1, static_cast<int>(std::ceil(std::abs(part.m_To - part.m_From) / most - 1e-9)));
    }

    [[nodiscard]] double ErrorOf(SRange part, EEdges eEdges) const {
        const std::optional<SFlatPart> flat = Flat(m_Curve, part, eEdges);
        return flat.has_value() ? flat->m_Error : HUGE_VAL;
    }

    /// How far an edge, or two tangents, can reach from the start of the range.
    [[nodiscard]] double Farthest(SRange range, EEdges eEdges) const {
        double low = range.m_From;
        double high = range.m_To;
        double at = high;
        for (int i = 0; i < 60; ++i) {
            const double error = ErrorOf({range.m_From, at}, eEdges);
            (error <= m_Tolerance ? low : high) = at;
            if (low == range.m_To || (error <= m_Tolerance && error >= 0.9 * m_Tolerance)) {
                break;
            }
            // The error grows about with the square of the length.
            const double guess =
                error == HUGE_VAL ? (low + high) / 2.0
                                  : range.m_From + (at - range.m_From) * std::sqrt(0.95 * m_Tolerance /
                                                                                   std::max(error, 1e-300));
            const double edge = 0.05 * (high - low);
            at = SRange{low + edge, high - edge}.Clamped(guess);
        }
        // In the tip of something nearly a cusp no part is short enough: such a short one is a point.
        return low != range.m_From ? low : high;
    }

    void AppendEnd(SPoint end) {
        if (m_Vertices.empty() || !(m_Vertices.back().m_At == end)) {
            m_Vertices.push_back({end, m_bJointEnd});
        }
    }

    const CCurve& m_Curve;
    double m_Tolerance;
    std::vector<SVertex>& m_Vertices;
    bool m_bJointEnd = false;
};

struct SStretchFlattening {
    SPoint m_Start;
    std::optional<ESide> m_eMaterial;
    double m_Tolerance;
    std::vector<SVertex>& m_Vertices;

    void operator()(const SLineTo& line) const { m_Vertices.push_back({line.m_End}); }
    void operator()(const SArcTo& arc) const { Append(CCurve(arc), arc.m_End); }
    void operator()(const SCurveTo& curve) const { Append(CCurve(m_Start, curve), curve.m_End); }

    void Append(const CCurve& curve, SPoint end) const {
        CCurveFlattening(curve, m_Tolerance, m_Vertices).Append(m_eMaterial, end);
    }
};

std::vector<SVertex> Vertices(const SPath& path, std::optional<ESide> eMaterial, double tolerance) {
    std::vector<SVertex> vertices{{path.m_Start}};
    SPoint from = path.m_Start;
    for (const CStretch& stretch : path.m_Stretches) {
        std::visit(SStretchFlattening{from, eMaterial, tolerance, vertices}, stretch);
        from = EndOf(stretch);
    }
    return vertices;
}

/// Whether the line from a by the joint to b is straight.
bool GoesStraightOn(SPoint a, SPoint joint, SPoint b) {
    const SPoint line = b - a;
    return Dot(joint - a, b - joint) >= 0.0 && std::abs(Cross(line, joint - a)) <= 1e-10 * Dot(line, line);
}

}  // namespace

CRing FlattenedAway(const SPath& path, ESide eMaterial, double tolerance) {
    std::vector<SVertex> vertices = Vertices(path, eMaterial, tolerance);
    double extent = 0.0;
    for (const SVertex& vertex : vertices) {
        extent = std::max(extent, Length(vertex.m_At - path.m_Start));
    }
    // The ring closes itself: what comes back to the start, but for rounding, is the start.
    if (vertices.size() > 1 && Length(vertices.back().m_At - path.m_Start) <= ROUNDING_OF_ENDS * extent) {
        vertices.front().m_bJoint = vertices.front().m_bJoint || vertices.back().m_bJoint;
        vertices.pop_back();
    }
    CRing ring;
    for (size_t i = 0; i < vertices.size(); ++i) {
        const SPoint before = ring.empty() ? vertices.back().m_At : ring.back();
        const SPoint after = vertices[(i + 1) % vertices.size()].m_At;
        if (!vertices[i].m_bJoint || vertices.size() < 4 ||
            !GoesStraightOn(before, vertices[i].m_At, after)) {
            ring.push_back(vertices[i].m_At);
        }
    }
    return ring;
}

std::vector<SPoint> Chords(const SPath& path, double tolerance) {
    std::vector<SPoint> points;
    for (const SVertex& vertex : Vertices(path, std::nullopt, tolerance)) {
        points.push_back(vertex.m_At);
    }
    return points;
}

}  // namespace nestrix
