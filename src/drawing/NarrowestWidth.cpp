#include <algorithm>
#include <cmath>

#include "drawing/Oddities.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// The convex hull, counter-clockwise, by Andrew's monotone chain.
CRing HullOf(CRing points) {
    std::sort(points.begin(), points.end(),
              [](SPoint a, SPoint b) { return a.m_X != b.m_X ? a.m_X < b.m_X : a.m_Y < b.m_Y; });
    points.erase(std::unique(points.begin(), points.end()), points.end());
    if (points.size() < 3) {
        return points;
    }
    CRing hull;
    for (int nSide = 0; nSide < 2; ++nSide) {
        const size_t nFirst = hull.size();
        for (const SPoint point : points) {
            while (hull.size() >= nFirst + 2 &&
                   Cross(hull.back() - hull[hull.size() - 2], point - hull.back()) <= 0.0) {
                hull.pop_back();
            }
            hull.push_back(point);
        }
        hull.pop_back();
        std::reverse(points.begin(), points.end());
    }
    return hull;
}

double WidthAlong(const CRing& hull, SPoint direction) {
    double low = HUGE_VAL;
    double high = -HUGE_VAL;
    for (const SPoint point : hull) {
        low = std::min(low, Dot(direction, point));
        high = std::max(high, Dot(direction, point));
    }
    return hull.empty() ? 0.0 : high - low;
}

/// The least width in any direction: it is found across one of the hull's edges.
double LeastWidth(const CRing& hull) {
    if (hull.size() < 3) {
        return 0.0;
    }
    double least = HUGE_VAL;
    size_t nFar = 1;
    for (size_t i = 0; i < hull.size(); ++i) {
        const SPoint from = hull[i];
        const SPoint along = hull[(i + 1) % hull.size()] - from;
        const auto height = [&](size_t k) { return Cross(along, hull[k % hull.size()] - from); };
        // The farthest corner goes round as the edge does.
        for (size_t nStep = 0; nStep < hull.size() && height(nFar + 1) >= height(nFar); ++nStep) {
            ++nFar;
        }
        least = std::min(least, height(nFar) / Length(along));
    }
    return least;
}

}  // namespace

double NarrowestWidth(const SPiece& piece) {
    const CRing hull = HullOf(piece.m_Shape.m_Outline);
    if (piece.m_Turns.m_bAny) {
        return LeastWidth(hull);
    }
    double least = HUGE_VAL;
    for (const double degrees : piece.m_Turns.m_Degrees) {
        if (!std::isfinite(degrees)) {
            continue;
        }
        const SDirection turn = DirectionOf(degrees);
        least = std::min(least, WidthAlong(hull, {turn.m_Cosine, -turn.m_Sine}));
        if (piece.m_bMirrored) {
            least = std::min(least, WidthAlong(hull, {-turn.m_Cosine, -turn.m_Sine}));
        }
    }
    return least;
}

}  // namespace nestrix
