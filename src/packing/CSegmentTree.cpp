#include "packing/CSegmentTree.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Of the farthest coordinate. A place in a turned box and the distance of two are sums of a dozen products,
/// each rounded by 1.1e-16 of it.
constexpr double ROUNDING = 1e-14;

/// The direction of the segments on an average over their lengths that takes opposite directions for the
/// same: of their angles doubled.
SPoint DirectionOf(std::span<const SSegment> segments) {
    SPoint doubled;
    for (const SSegment& segment : segments) {
        const SPoint along = segment.m_To - segment.m_From;
        const double length = Length(along);
        if (length > 0.0) {
            const SPoint unit = along * (1.0 / length);
            doubled = doubled +
                      SPoint{unit.m_X * unit.m_X - unit.m_Y * unit.m_Y, 2.0 * unit.m_X * unit.m_Y} * length;
        }
    }
    const double angle = std::atan2(doubled.m_Y, doubled.m_X) / 2.0;
    return {std::cos(angle), std::sin(angle)};
}

/// In the coordinates of a box.
SPoint InBox(SPoint point, SPoint along) {
    return {Dot(along, point), Cross(along, point)};
}

}  // namespace

CSegmentTree::CSegmentTree(std::vector<SSegment> segments, double reach) {
    double farthest = 0.0;
    for (const SSegment& segment : segments) {
        for (const SPoint point : {segment.m_From, segment.m_To}) {
            farthest = std::max({farthest, std::abs(point.m_X), std::abs(point.m_Y)});
        }
    }
    m_Nodes.reserve(2 * segments.size());
    if (!segments.empty()) {
        Build(segments, reach / 2.0 + ROUNDING * farthest);
    }
}

/// Parts the segments across the axis of their box of which a line meets the fewest of them: teeth beside
/// each other, and not what is near their tips from what is near their roots.
void CSegmentTree::Build(std::span<SSegment> segments, double margin) {
    const SPoint along = DirectionOf(segments);
    SPlaneBox box;
    SPoint lengths;
    for (const SSegment& segment : segments) {
        const SPoint from = InBox(segment.m_From, along);
        const SPoint to = InBox(segment.m_To, along);
        box.Include(from);
        box.Include(to);
        lengths = lengths + SPoint{std::abs(to.m_X - from.m_X), std::abs(to.m_Y - from.m_Y)};
    }
    const SPoint extent = box.m_High - box.m_Low;
    const SPoint middle = (box.m_Low + box.m_High) * 0.5;
    const size_t nNode = m_Nodes.size();
    m_Nodes.push_back({{Dot(along, {middle.m_X, -middle.m_Y}), Dot({along.m_Y, along.m_X}, middle)},
                       along,
                       extent.m_X / 2.0 + margin,
                       extent.m_Y / 2.0 + margin,
                       0,
                       segments.front().m_nIndex});
    if (segments.size() == 1) {
        return;
    }
    // Crowds are lengths by extents; multiplied out, for an extent may be 0.
    const bool bAlong = lengths.m_X * extent.m_Y < lengths.m_Y * extent.m_X;
    const SPoint axis = bAlong ? along : SPoint{-along.m_Y, along.m_X};
    const size_t nHalf = segments.size() / 2;
    std::nth_element(segments.begin(), segments.begin() + static_cast<std::ptrdiff_t>(nHalf), segments.end(),
                     [axis](const SSegment& a, const SSegment& b) {
                         return Dot(axis, a.m_From + a.m_To) < Dot(axis, b.m_From + b.m_To);
                     });
    Build(segments.first(nHalf), margin);
    m_Nodes[nNode].m_nSecond = m_Nodes.size();
    Build(segments.subspan(nHalf), margin);
}

/// Two boxes are apart if they are along one of their four axes.
bool CSegmentTree::AreApart(const SNode& a, const SNode& b) {
    const SPoint apart = b.m_Middle - a.m_Middle;
    const double parallel = std::abs(Dot(a.m_Along, b.m_Along));
    const double across = std::abs(Cross(a.m_Along, b.m_Along));
    return std::abs(Dot(a.m_Along, apart)) >
               a.m_HalfLength + b.m_HalfLength * parallel + b.m_HalfWidth * across ||
           std::abs(Cross(a.m_Along, apart)) >
               a.m_HalfWidth + b.m_HalfLength * across + b.m_HalfWidth * parallel ||
           std::abs(Dot(b.m_Along, apart)) >
               b.m_HalfLength + a.m_HalfLength * parallel + a.m_HalfWidth * across ||
           std::abs(Cross(b.m_Along, apart)) >
               b.m_HalfWidth + a.m_HalfLength * across + a.m_HalfWidth * parallel;
}

}  // namespace nestrix
