#include "nest/Simplify.h"

#include <utility>
#include <vector>

#include "nest/GridGeometry.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

size_t FarthestFrom(const CGridRing& ring, size_t nFrom) {
    size_t nFarthest = nFrom;
    double farthest = 0.0;
    for (size_t i = 0; i < ring.size(); ++i) {
        const double distance = Length(AsPoint(ring[i]) - AsPoint(ring[nFrom]));
        if (distance > farthest) {
            farthest = distance;
            nFarthest = i;
        }
    }
    return nFarthest;
}

CGridRing Simplified(const CGridRing& ring, double tolerance) {
    const size_t nCount = ring.size();
    const size_t nFirst = FarthestFrom(ring, 0);
    const size_t nSecond = FarthestFrom(ring, nFirst);
    std::vector<bool> kept(nCount, false);
    kept[nFirst] = kept[nSecond] = true;
    std::vector<std::pair<size_t, size_t>> runs{{nFirst, nSecond}, {nSecond, nFirst}};
    while (!runs.empty()) {
        const auto [nFrom, nTo] = runs.back();
        runs.pop_back();
        double farthest = tolerance;
        size_t nFarthest = nFrom;
        for (size_t i = (nFrom + 1) % nCount; i != nTo; i = (i + 1) % nCount) {
            const double distance = DistanceOf(AsPoint(ring[i]), AsPoint(ring[nFrom]), AsPoint(ring[nTo]));
            if (distance > farthest) {
                farthest = distance;
                nFarthest = i;
            }
        }
        if (nFarthest != nFrom) {
            kept[nFarthest] = true;
            runs.emplace_back(nFrom, nFarthest);
            runs.emplace_back(nFarthest, nTo);
        }
    }
    CGridRing simple;
    for (size_t i = 0; i < nCount; ++i) {
        if (kept[i]) {
            simple.push_back(ring[i]);
        }
    }
    return simple;
}

/// Whether the ring runs back on itself at one of its points. Cleaning would take off all of the spike.
bool HasSpike(const CGridRing& ring) {
    for (size_t i = 0; i < ring.size(); ++i) {
        const SGridPoint a = ring[i];
        const SGridPoint b = ring[(i + 1) % ring.size()];
        const SGridPoint c = ring[(i + 2) % ring.size()];
        if (Turn(a, b, c) == 0 && Dot(AsPoint(b - a), AsPoint(c - b)) < 0.0) {
            return true;
        }
    }
    return false;
}

}  // namespace

SGridShape Simplified(const SGridShape& shape, double tolerance) {
    for (; tolerance >= 1.0; tolerance /= 2.0) {
        SGridShape simple{Simplified(shape.m_Outline, tolerance), {}};
        if (HasSpike(simple.m_Outline)) {
            continue;
        }
        for (const CGridRing& hole : shape.m_Holes) {
            simple.m_Holes.push_back(Simplified(hole, tolerance));
        }
        simple = Cleaned(simple);
        if (!simple.m_Outline.empty() && !CrossesItself(simple)) {
            return simple;
        }
    }
    return shape;
}

}  // namespace nestrix
