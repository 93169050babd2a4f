#include "nest/CornerShapes.h"

#include <algorithm>
#include <cmath>

namespace nestrix {

namespace {

/// The cosine between two sides that run against each other, at most.
constexpr double AGAINST = -0.9999;

/// Whether the point is inside, for points that are not near any side.
bool Contains(const SCornerShape& shape, SPoint at) {
    bool bInside = false;
    for (const SCornerShape::SSide& side : shape.m_Sides) {
        const SPoint from = side.m_From - at;
        const SPoint to = from + side.m_Along * side.m_Length;
        if ((from.m_Y > 0.0) != (to.m_Y > 0.0) && (Cross(from, to) > 0.0) == (to.m_Y > from.m_Y)) {
            bInside = !bInside;
        }
    }
    return bInside;
}

}  // namespace

SCornerShape CornerShapeOf(const SVersion& version) {
    SCornerShape shape;
    const CGridRing& ring = version.m_Shape.m_Outline;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SPoint from = AsPoint(ring[i]);
        const SPoint edge = AsPoint(ring[(i + 1) % ring.size()]) - from;
        const SPoint back = AsPoint(ring[(i + ring.size() - 1) % ring.size()]) - from;
        const double length = Length(edge);
        const double start = AngleOf(edge);
        shape.m_Sides.push_back(
            {from, edge * (1.0 / length), length, {start, NormalisedAngle(AngleOf(back) - start)}});
        shape.m_Box.Include(from);
        shape.m_Perimeter += length;
    }
    return shape;
}

void AddInnerDirections(const SCornerShape& shape, SPoint at, double tolerance, std::vector<SSector>& taken) {
    if (GapOf(shape.m_Box, {at, at}) > tolerance) {
        return;
    }
    const size_t nBefore = taken.size();
    for (const SCornerShape::SSide& side : shape.m_Sides) {
        const SPoint from = at - side.m_From;
        const double along = Dot(from, side.m_Along);
        if (std::abs(from.m_X) < tolerance && std::abs(from.m_Y) < tolerance) {
            taken.push_back(side.m_Corner);
        } else if (std::abs(Cross(side.m_Along, from)) < tolerance && along > tolerance &&
                   along < side.m_Length - tolerance) {
            taken.push_back({AngleOf(side.m_Along), HALF_TURN});
        }
    }
    if (taken.size() == nBefore && Contains(shape, at)) {
        taken.push_back({0.0, FULL_TURN});
    }
}

double AreaBelow(const SCornerShape& shape, double height) {
    // Between each side and the line at the height, as far as the side lies below.
    double area = 0.0;
    for (const SCornerShape::SSide& side : shape.m_Sides) {
        const SPoint to = side.m_From + side.m_Along * side.m_Length;
        const double fromDepth = height - side.m_From.m_Y;
        const double toDepth = height - to.m_Y;
        if (fromDepth <= 0.0 && toDepth <= 0.0) {
            continue;
        }
        const double below = std::max(fromDepth, 0.0) + std::max(toDepth, 0.0);
        const double share =
            fromDepth < 0.0 || toDepth < 0.0 ? below / (std::abs(fromDepth) + std::abs(toDepth)) : 1.0;
        area += (to.m_X - side.m_From.m_X) * share * below / 2.0;
    }
    return area;
}

double ContactOf(const SCornerShape& first, const SCornerShape& second, SPoint at, double tolerance) {
    double contact = 0.0;
    if (GapOf(BoxAt(first.m_Box, at), second.m_Box) > tolerance) {
        return contact;
    }
    for (const SCornerShape::SSide& own : first.m_Sides) {
        for (const SCornerShape::SSide& its : second.m_Sides) {
            if (Dot(own.m_Along, its.m_Along) > AGAINST) {
                continue;
            }
            const SPoint from = own.m_From + at - its.m_From;
            const SPoint to = from + own.m_Along * own.m_Length;
            if (std::abs(Cross(its.m_Along, from)) < tolerance &&
                std::abs(Cross(its.m_Along, to)) < tolerance) {
                const double high = std::min(Dot(from, its.m_Along), its.m_Length);
                contact += std::max(high - std::max(Dot(to, its.m_Along), 0.0), 0.0);
            }
        }
    }
    return contact;
}

}  // namespace nestrix
