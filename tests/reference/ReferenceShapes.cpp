#include <algorithm>
#include <array>
#include <functional>
#include <optional>

#include "tests/reference/ReferenceCertificate.h"
#include "tests/reference/SFraction.h"

namespace nestrix::reference {

namespace {

struct SSide {
    SGridPoint m_From;
    SGridPoint m_To;
    int m_nShape = 0;
};
using CSides = std::vector<SSide>;

int64_t Turn(SGridPoint a, SGridPoint b, SGridPoint c) {
    return (b.m_nX - a.m_nX) * (c.m_nY - a.m_nY) - (b.m_nY - a.m_nY) * (c.m_nX - a.m_nX);
}

void AddRing(CSides& sides, CGridRing ring, int64_t nSign, int nShape) {
    int64_t nArea = 0;
    for (size_t i = 0; i < ring.size(); ++i) {
        nArea += Turn({0, 0}, ring[i], ring[(i + 1) % ring.size()]);
    }
    if (nArea * nSign < 0) {
        std::reverse(ring.begin(), ring.end());
    }
    for (size_t i = 0; i < ring.size(); ++i) {
        sides.push_back({ring[i], ring[(i + 1) % ring.size()], nShape});
    }
}

void AddShape(CSides& sides, const SGridShape& shape, int nShape) {
    AddRing(sides, shape.m_Outline, 1, nShape);
    for (const CGridRing& hole : shape.m_Holes) {
        AddRing(sides, hole, -1, nShape);
    }
}

/// The height at which two lines meet, unless they are parallel.
std::optional<SFraction> MeetingHeight(const SSide& a, const SSide& b) {
    const SGridPoint u = a.m_To - a.m_From;
    const SGridPoint v = b.m_To - b.m_From;
    const int64_t nSlope = u.m_nX * v.m_nY - u.m_nY * v.m_nX;
    if (nSlope == 0) {
        return std::nullopt;
    }
    const SGridPoint w = b.m_From - a.m_From;
    const int64_t nPart = w.m_nX * v.m_nY - w.m_nY * v.m_nX;
    return Ratio(CFractionInteger{a.m_From.m_nY} * nSlope + CFractionInteger{u.m_nY} * nPart, nSlope);
}

/// Between two neighbours of these no sides meet and none ends.
std::vector<SFraction> Heights(const CSides& sides) {
    std::vector<SFraction> heights;
    for (const SSide& a : sides) {
        heights.push_back({a.m_From.m_nY, 1});
        for (const SSide& b : sides) {
            if (const std::optional<SFraction> height = MeetingHeight(a, b)) {
                heights.push_back(*height);
            }
        }
    }
    std::sort(heights.begin(), heights.end());
    heights.erase(std::unique(heights.begin(), heights.end()), heights.end());
    return heights;
}

struct SCrossing {
    SFraction m_X;
    const SSide* m_pSide = nullptr;
};

/// The sides at a height at which none ends, from left to right.
std::vector<SCrossing> CrossingsAt(const SFraction& y, const CSides& sides) {
    std::vector<SCrossing> crossings;
    for (const SSide& side : sides) {
        const auto [nLow, nHigh] = std::minmax(side.m_From.m_nY, side.m_To.m_nY);
        if (SFraction{nLow, 1} < y && y < SFraction{nHigh, 1}) {
            const SGridPoint along = side.m_To - side.m_From;
            const CFractionInteger nRise = y.m_nNumerator - y.m_nDenominator * side.m_From.m_nY;
            crossings.push_back({Ratio(CFractionInteger{side.m_From.m_nX} * along.m_nY * y.m_nDenominator +
                                           nRise * along.m_nX,
                                       y.m_nDenominator * along.m_nY),
                                 &side});
        }
    }
    std::sort(crossings.begin(), crossings.end(),
              [](const SCrossing& a, const SCrossing& b) { return a.m_X < b.m_X; });
    return crossings;
}

using CWindings = std::array<int, 2>;

/// Shows the winding numbers of both shapes in every part of the plane that sides bound.
void VisitParts(const CSides& sides, const std::function<void(const CWindings&)>& visit) {
    const std::vector<SFraction> heights = Heights(sides);
    for (size_t i = 0; i + 1 < heights.size(); ++i) {
        const std::vector<SCrossing> crossings = CrossingsAt(Middle(heights[i], heights[i + 1]), sides);
        CWindings windings{};
        for (size_t j = 0; j < crossings.size(); ++j) {
            const SSide& side = *crossings[j].m_pSide;
            windings[static_cast<size_t>(side.m_nShape)] += side.m_From.m_nY < side.m_To.m_nY ? -1 : 1;
            if (j + 1 == crossings.size() || !(crossings[j].m_X == crossings[j + 1].m_X)) {
                visit(windings);
            }
        }
    }
}

bool IsOn(SGridPoint point, const SSide& side) {
    return Turn(side.m_From, side.m_To, point) == 0 &&
           std::min(side.m_From.m_nX, side.m_To.m_nX) <= point.m_nX &&
           point.m_nX <= std::max(side.m_From.m_nX, side.m_To.m_nX) &&
           std::min(side.m_From.m_nY, side.m_To.m_nY) <= point.m_nY &&
           point.m_nY <= std::max(side.m_From.m_nY, side.m_To.m_nY);
}

/// The sides cut at all ends of sides that lie on them, less those that another takes back.
CSides WithoutSeams(const CSides& sides) {
    CSides parts;
    for (const SSide& side : sides) {
        CGridRing points;
        for (const SSide& other : sides) {
            if (IsOn(other.m_From, side)) {
                points.push_back(other.m_From);
            }
        }
        const auto distance = [&side](SGridPoint point) {
            return std::abs(point.m_nX - side.m_From.m_nX) + std::abs(point.m_nY - side.m_From.m_nY);
        };
        std::sort(points.begin(), points.end(),
                  [&](SGridPoint a, SGridPoint b) { return distance(a) < distance(b); });
        for (size_t i = 0; i + 1 < points.size(); ++i) {
            const auto back = std::find_if(parts.begin(), parts.end(), [&](const SSide& part) {
                return part.m_From == points[i + 1] && part.m_To == points[i];
            });
            if (back != parts.end()) {
                parts.erase(back);
            } else if (points[i] != points[i + 1]) {
                parts.push_back({points[i], points[i + 1], side.m_nShape});
            }
        }
    }
    return parts;
}

bool IsNearer(SGridPoint point, const SSide& side, int64_t nDistance) {
    const SGridPoint u = side.m_To - side.m_From;
    const SGridPoint w = point - side.m_From;
    const int64_t nLength = u.m_nX * u.m_nX + u.m_nY * u.m_nY;
    const int64_t nFoot = std::clamp<int64_t>(u.m_nX * w.m_nX + u.m_nY * w.m_nY, 0, nLength);
    // The way from the foot to the point, times the side's squared length.
    const CFractionInteger nX = CFractionInteger{w.m_nX} * nLength - CFractionInteger{u.m_nX} * nFoot;
    const CFractionInteger nY = CFractionInteger{w.m_nY} * nLength - CFractionInteger{u.m_nY} * nFoot;
    return nX * nX + nY * nY < CFractionInteger{nDistance} * nDistance * nLength * nLength;
}

}  // namespace

bool DoInsidesOverlap(const SGridShape& first, const SGridShape& second) {
    CSides sides;
    AddShape(sides, first, 0);
    AddShape(sides, second, 1);
    bool bOverlap = false;
    VisitParts(sides, [&](const CWindings& windings) {
        bOverlap = bOverlap || (windings[0] > 0 && windings[1] > 0);
    });
    return bOverlap;
}

bool IsSound(const SGridShape& shape) {
    CSides sides;
    AddShape(sides, shape, 0);
    for (const SSide& a : sides) {
        for (const SSide& b : sides) {
            const int64_t nSides = Turn(a.m_From, a.m_To, b.m_From) * Turn(a.m_From, a.m_To, b.m_To);
            const int64_t nOthers = Turn(b.m_From, b.m_To, a.m_From) * Turn(b.m_From, b.m_To, a.m_To);
            if (nSides < 0 && nOthers < 0) {
                return false;
            }
        }
    }
    bool bInside = false;
    bool bSound = true;
    VisitParts(sides, [&](const CWindings& windings) {
        bInside = bInside || windings[0] == 1;
        bSound = bSound && (windings[0] == 0 || windings[0] == 1);
    });
    return bInside && bSound;
}

bool AreNearer(const SGridShape& first, const SGridShape& second, int64_t nDistance) {
    CSides ofFirst;
    CSides ofSecond;
    AddShape(ofFirst, first, 0);
    AddShape(ofSecond, second, 0);
    bool bNearer = false;
    for (const SSide& a : WithoutSeams(ofFirst)) {
        for (const SSide& b : WithoutSeams(ofSecond)) {
            bNearer = bNearer || IsNearer(a.m_From, b, nDistance) || IsNearer(a.m_To, b, nDistance) ||
                      IsNearer(b.m_From, a, nDistance) || IsNearer(b.m_To, a, nDistance);
        }
    }
    return bNearer;
}

}  // namespace nestrix::reference
