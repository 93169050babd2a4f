#include "nest/ForbiddenRegion.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Neighbouring normals of a region that is moved outward enclose at most an angle with this cosine: 22.5°.
/// The corner between two sides 22.5° apart is farther off than the sides by 1 / cos(11.25°) = 1.02.
constexpr double COSINE_BETWEEN_SIDES = 0.92387;

size_t LowestOf(const CConvexPart& part) {
    return static_cast<size_t>(std::min_element(part.begin(), part.end(),
                                                [](SPoint a, SPoint b) {
                                                    return a.m_Y < b.m_Y || (a.m_Y == b.m_Y && a.m_X < b.m_X);
                                                }) -
                               part.begin());
}

/// The edges of a convex ring as vectors, beginning with the one that leaves the lowest corner.
std::vector<SPoint> EdgesOf(const CConvexPart& part, size_t nLowest) {
    std::vector<SPoint> edges;
    edges.reserve(part.size());
    for (size_t i = 0; i < part.size(); ++i) {
        const SPoint from = part[(nLowest + i) % part.size()];
        const SPoint to = part[(nLowest + i + 1) % part.size()];
        edges.push_back(to - from);
    }
    return edges;
}

CConvexPart Mirrored(const CConvexPart& moves) {
    CConvexPart mirrored;
    mirrored.reserve(moves.size());
    for (const SPoint point : moves) {
        mirrored.push_back(-point);
    }
    return mirrored;
}

/// The Minkowski sum: the edges of both in the order of their directions. Parallel ones become one.
CConvexPart MinkowskiSum(const CConvexPart& one, const CConvexPart& other) {
    const size_t nOne = LowestOf(one);
    const size_t nOther = LowestOf(other);
    const std::vector<SPoint> a = EdgesOf(one, nOne);
    const std::vector<SPoint> b = EdgesOf(other, nOther);
    CConvexPart sum;
    sum.reserve(a.size() + b.size());
    SPoint corner = one[nOne] + other[nOther];
    for (size_t i = 0, k = 0; i < a.size() || k < b.size();) {
        sum.push_back(corner);
        const double turn = i == a.size() ? -1.0 : k == b.size() ? 1.0 : Cross(a[i], b[k]);
        if (turn >= 0.0) {
            corner = corner + a[i++];
        }
        if (turn <= 0.0) {
            corner = corner + b[k++];
        }
    }
    return sum;
}

/// Adds sides at a corner until the step from the last side to `next` is small enough.
void AppendCornerSides(std::vector<SHalfPlane>& sides, SPoint corner, SPoint next, double outward) {
    const SPoint last = sides.back().m_Normal;
    if (Dot(last, next) >= COSINE_BETWEEN_SIDES) {
        return;
    }
    const SPoint sum = last + next;
    const SPoint middle = sum * (1.0 / Length(sum));
    AppendCornerSides(sides, corner, middle, outward);
    sides.push_back({middle, Dot(middle, corner) + outward});
    AppendCornerSides(sides, corner, next, outward);
}

std::vector<SHalfPlane> SidesOf(const CConvexPart& sum, double outward) {
    std::vector<SHalfPlane> sides;
    sides.reserve(sum.size());
    for (size_t i = 0; i < sum.size(); ++i) {
        const SPoint along = sum[(i + 1) % sum.size()] - sum[i];
        const double length = Length(along);
        if (length <= 0.0) {
            continue;
        }
        const SPoint normal{along.m_Y / length, -along.m_X / length};
        if (outward > 0.0 && !sides.empty()) {
            AppendCornerSides(sides, sum[i], normal, outward);
        }
        sides.push_back({normal, Dot(normal, sum[i]) + outward});
    }
    if (outward > 0.0) {
        AppendCornerSides(sides, sum[0], sides.front().m_Normal, outward);
    }
    return sides;
}

SPoint CrossingOf(const SHalfPlane& a, const SHalfPlane& b) {
    const double turn = Cross(a.m_Normal, b.m_Normal);
    return {(a.m_Offset * b.m_Normal.m_Y - b.m_Offset * a.m_Normal.m_Y) / turn,
            (a.m_Normal.m_X * b.m_Offset - b.m_Normal.m_X * a.m_Offset) / turn};
}

/// Neighbouring sides that are all but parallel have no crossing that could be calculated.
void DropParallelSides(std::vector<SHalfPlane>& sides) {
    constexpr double PARALLEL = 1e-7;  // below a unit in a grid's width
    std::vector<SHalfPlane> kept;
    for (const SHalfPlane& side : sides) {
        if (kept.empty() || Cross(kept.back().m_Normal, side.m_Normal) > PARALLEL) {
            kept.push_back(side);
        }
    }
    while (kept.size() > 1 && Cross(kept.back().m_Normal, kept.front().m_Normal) <= PARALLEL) {
        kept.pop_back();
    }
    sides = std::move(kept);
}

}  // namespace

SHalfPlane FindFarthestSide(const CConvexPart& stays, const CConvexPart& moves, double outward,
                            SPoint point) {
    const std::vector<SHalfPlane> sides = SidesOf(MinkowskiSum(stays, Mirrored(moves)), outward);
    return *std::max_element(sides.begin(), sides.end(), [point](const SHalfPlane& a, const SHalfPlane& b) {
        return a.Outside(point) < b.Outside(point);
    });
}

SForbiddenRegion FindForbiddenRegion(const CConvexPart& stays, const CConvexPart& moves, double outward) {
    SForbiddenRegion region{SidesOf(MinkowskiSum(stays, Mirrored(moves)), outward), {}, {}};
    DropParallelSides(region.m_Sides);
    const size_t nSides = region.m_Sides.size();
    region.m_Corners.reserve(nSides);
    for (size_t i = 0; i < nSides; ++i) {
        region.m_Corners.push_back(CrossingOf(region.m_Sides[(i + nSides - 1) % nSides], region.m_Sides[i]));
        region.m_Box.Include(region.m_Corners.back());
    }
    return region;
}

}  // namespace nestrix
