#include "certify/ShapesOnGrid.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "certify/Certify.h"

namespace nestrix::certify {

namespace {

bool Fits(double length, const SGrid& grid) {
    return std::abs(length) <= grid.Length(GRID_LENGTH_MOST);  // not so for NaN
}

bool Fits(SGridPoint point) {
    const auto fits = [](int64_t nLength) {
        return -GRID_LENGTH_MOST <= nLength && nLength <= GRID_LENGTH_MOST;
    };
    return fits(point.m_nX) && fits(point.m_nY);
}

/// Rings are measured from the lower left corner of the outline's box, as OnGrid does.
bool Fits(const SShape& shape, const SGrid& grid) {
    if (shape.m_Outline.empty()) {
        return false;
    }
    SPoint origin = shape.m_Outline.front();
    for (const SPoint& point : shape.m_Outline) {
        origin = {std::min(origin.m_X, point.m_X), std::min(origin.m_Y, point.m_Y)};
    }
    const auto ringFits = [&](const CRing& ring) {
        return std::all_of(ring.begin(), ring.end(), [&](const SPoint& point) {
            return Fits(point.m_X - origin.m_X, grid) && Fits(point.m_Y - origin.m_Y, grid);
        });
    };
    return ringFits(shape.m_Outline) && std::all_of(shape.m_Holes.begin(), shape.m_Holes.end(), ringFits);
}

bool MoveWithinReach(CGridRing& ring, SGridPoint by) {
    return std::all_of(ring.begin(), ring.end(), [by](SGridPoint& point) {
        point = point + by;
        return Fits(point);
    });
}

}  // namespace

bool IsUsable(const SFreeStrip& strip, const SGrid& grid) {
    return grid.m_nExponent >= -GRID_EXPONENT_MOST && grid.m_nExponent <= GRID_EXPONENT_MOST &&
           strip.m_Width > 0.0 && strip.m_Spacing >= 0.0 && strip.m_Margin >= 0.0 &&
           Fits(strip.m_Width, grid) && Fits(strip.m_Spacing, grid) && Fits(strip.m_Margin, grid);
}

std::optional<SGridShape> FindSoundShape(const SShape& shape, const SGrid& grid) {
    if (!Fits(shape, grid)) {
        return std::nullopt;
    }
    SGridShape rounded = OnGrid(shape, grid);
    return IsSound(rounded) ? std::optional(std::move(rounded)) : std::nullopt;
}

std::optional<SGridShape> FindPlacedShape(const SGridShape& shape, const SFreePlacement& placement) {
    if (!std::isfinite(placement.m_Degrees) || !Fits(placement.m_At)) {
        return std::nullopt;
    }
    SGridShape placed = Laid(shape, placement.m_Degrees, placement.m_bMirrored);
    bool bFits = MoveWithinReach(placed.m_Outline, placement.m_At);
    for (CGridRing& hole : placed.m_Holes) {
        bFits = MoveWithinReach(hole, placement.m_At) && bFits;
    }
    return bFits ? std::optional(std::move(placed)) : std::nullopt;
}

}  // namespace nestrix::certify
