#include "drawing/Doubles.h"

#include <algorithm>
#include <cmath>

#include "drawing/CCurve.h"
#include "drawing/CPointGrid.h"
#include "drawing/PathArea.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

SPoint MiddleOf(SPoint start, const CStretch& stretch) {
    if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
        return PointAt(*pArc, pArc->m_From + pArc->m_Sweep / 2.0);
    }
    if (const auto* pCurve = std::get_if<SCurveTo>(&stretch)) {
        return CCurve(start, *pCurve).At(0.5);
    }
    return (start + EndOf(stretch)) * 0.5;
}

/// A line as its corners, with a point of the stretch between every two: what tells it from others.
std::vector<SPoint> Outlined(const SPath& path) {
    std::vector<SPoint> points{path.m_Start};
    for (const CStretch& stretch : path.m_Stretches) {
        const SPoint middle = MiddleOf(points.back(), stretch);
        points.insert(points.end(), {middle, EndOf(stretch)});
    }
    return points;
}

SPlaneBox BoxOf(const std::vector<SPoint>& points) {
    SPlaneBox box;
    for (const SPoint point : points) {
        box.Include(point);
    }
    return box;
}

/// Nearly the same for nearly the same boxes, and far apart for most others.
SPoint KeyOf(const SPlaneBox& box) {
    constexpr double IRRATIONAL = 0.6180339887498949;
    return box.m_Low * IRRATIONAL + box.m_High;
}

/// Compares each with all earlier ones that have about the same box.
template <class TIsSame>
std::vector<bool> FindAgain(std::span<const std::vector<SPoint>> outlines, double distance,
                            const TIsSame& isSame) {
    std::vector<bool> again(outlines.size());
    std::vector<SPlaneBox> boxes;
    std::vector<SPoint> keys;
    SPlaneBox extent;
    for (const std::vector<SPoint>& outline : outlines) {
        boxes.push_back(BoxOf(outline));
        keys.push_back(KeyOf(boxes.back()));
        extent.Include(keys.back());
    }
    if (outlines.empty()) {
        return again;
    }
    const double least = std::max(1e-12 * Length(extent.m_High - extent.m_Low), 1e-300);
    const CPointGrid grid(keys, std::max(2.0 * distance, least));
    const auto isNear = [distance](SPoint a, SPoint b) { return Length(a - b) <= distance; };
    for (size_t i = 0; i < outlines.size(); ++i) {
        again[i] = grid.VisitNear(keys[i], [&](size_t k) {
            return k < i && !again[k] && isNear(boxes[i].m_Low, boxes[k].m_Low) &&
                   isNear(boxes[i].m_High, boxes[k].m_High) && isSame(i, k);
        });
    }
    return again;
}

bool IsNear(SPoint point, const CRing& ring, double distance) {
    for (size_t i = 0; i < ring.size(); ++i) {
        if (DistanceOf(point, ring[i], ring[(i + 1) % ring.size()]) <= distance) {
            return true;
        }
    }
    return false;
}

/// Whether some corners of one ring, a hundred at most, are all near another.
bool RunsAlong(const CRing& ring, const CRing& other, double distance) {
    const size_t nStep = 1 + ring.size() / 100;
    for (size_t i = 0; i < ring.size(); i += nStep) {
        if (!IsNear(ring[i], other, distance)) {
            return false;
        }
    }
    return true;
}

double PerimeterOf(const CRing& ring) {
    double length = 0.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        length += Length(ring[(i + 1) % ring.size()] - ring[i]);
    }
    return length;
}

}  // namespace

std::vector<bool> FindDoubles(std::span<const SPath> lines, double distance) {
    std::vector<std::vector<SPoint>> outlines;
    outlines.reserve(lines.size());
    for (const SPath& line : lines) {
        outlines.push_back(Outlined(line));
    }
    const auto isNear = [distance](SPoint a, SPoint b) { return Length(a - b) <= distance; };
    return FindAgain(outlines, distance, [&](size_t i, size_t k) {
        const std::vector<SPoint>& a = outlines[i];
        const std::vector<SPoint>& b = outlines[k];
        return std::equal(a.begin(), a.end(), b.begin(), b.end(), isNear) ||
               std::equal(a.begin(), a.end(), b.rbegin(), b.rend(), isNear);
    });
}

std::vector<bool> FindDoubleRings(std::span<const CRing> rings, double distance) {
    return FindAgain(rings, distance, [&](size_t i, size_t k) {
        const double difference = std::abs(TwiceSignedArea(rings[i])) - std::abs(TwiceSignedArea(rings[k]));
        return std::abs(difference) <= 2.0 * distance * PerimeterOf(rings[i]) &&
               RunsAlong(rings[i], rings[k], distance) && RunsAlong(rings[k], rings[i], distance);
    });
}

}  // namespace nestrix
