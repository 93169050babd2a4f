#include "nest/FillDents.h"

#include <algorithm>
#include <utility>
#include <vector>

#include "certify/Certify.h"
#include "nest/GridGeometry.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// A point that is left of a ring.
struct SCorner {
    SGridPoint m_At;
    double m_Depth = 0.0;  ///< at most, of what was filled along the edge that begins here
};

/// Takes out the points in which the ring turns to the right, no two neighbours in one pass, until none is
/// left that is near enough to the line between its neighbours.
CGridRing DentsFilled(const CGridRing& ring, double depth) {
    std::vector<SCorner> corners;
    for (const SGridPoint point : ring) {
        corners.push_back({point});
    }
    for (size_t nBefore = corners.size() + 1; corners.size() < nBefore && corners.size() > 3;) {
        nBefore = corners.size();
        std::vector<SCorner> left{corners.front()};
        for (size_t i = 1; i < corners.size(); ++i) {
            const SGridPoint next = corners[(i + 1) % corners.size()].m_At;
            const SGridPoint last = left.back().m_At;
            const SGridPoint at = corners[i].m_At;
            const double filled = std::max(left.back().m_Depth, corners[i].m_Depth) +
                                  DistanceOf(AsPoint(at), AsPoint(last), AsPoint(next));
            if (Turn(last, at, next) >= 0 || filled > depth || i + 1 == corners.size()) {
                left.push_back(corners[i]);
                continue;
            }
            left.back().m_Depth = filled;
            left.push_back(corners[++i]);
        }
        // The next pass begins elsewhere, so that every point has its turn.
        std::rotate(left.begin(), left.begin() + 1, left.end());
        corners = std::move(left);
    }
    CGridRing filled;
    for (const SCorner& corner : corners) {
        filled.push_back(corner.m_At);
    }
    return filled;
}

}  // namespace

SGridShape DentsFilled(const SGridShape& shape, double depth) {
    for (; depth >= 1.0; depth /= 2.0) {
        // Each point taken out adds a triangle to what the rings run around counter-clockwise. So all that
        // was inside still is, where nothing is run around twice; and a hole that has turned over is filled.
        SGridShape filled{DentsFilled(shape.m_Outline, depth), {}};
        for (const CGridRing& hole : shape.m_Holes) {
            if (CGridRing left = DentsFilled(hole, depth); TwiceArea(left) < 0) {
                filled.m_Holes.push_back(std::move(left));
            }
        }
        filled = Cleaned(filled);
        if (!filled.m_Outline.empty() && IsSound(filled)) {
            return filled;
        }
    }
    return shape;
}

}  // namespace nestrix
