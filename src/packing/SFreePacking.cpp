#include "packing/SFreePacking.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

namespace nestrix {

namespace {

/// A decimal number loses half of its last bit as a double, and as much again when it is counted in units.
/// What is this near to a whole number of units was meant to be it.
constexpr double DOUBLE_ERROR = 4e-16;

/// @return the whole number that the length was meant to be, if any.
std::optional<int64_t> FindMeant(double length, const SGrid& grid) {
    const int64_t nNearest = grid.Count(length);
    const double error = std::abs(grid.Length(nNearest) - length);
    return error <= DOUBLE_ERROR * std::abs(length) ? std::optional(nNearest) : std::nullopt;
}

int64_t RoundedDown(double length, const SGrid& grid) {
    const int64_t nNearest = grid.Count(length);
    return FindMeant(length, grid).value_or(grid.Length(nNearest) > length ? nNearest - 1 : nNearest);
}

int64_t RoundedUp(double length, const SGrid& grid) {
    const int64_t nNearest = grid.Count(length);
    return FindMeant(length, grid).value_or(grid.Length(nNearest) < length ? nNearest + 1 : nNearest);
}

void Move(CGridRing& ring, SGridPoint by) {
    for (SGridPoint& point : ring) {
        point = point + by;
    }
}

/// Twice the signed area, about the ring's first point: drawings may lie far from the origin.
double TwiceAreaOf(const CRing& ring) {
    double area = 0.0;
    for (size_t i = 0; i + 1 < ring.size(); ++i) {
        const SPoint& a = ring[i];
        const SPoint& b = ring[i + 1];
        area += (a.m_X - ring[0].m_X) * (b.m_Y - ring[0].m_Y) - (b.m_X - ring[0].m_X) * (a.m_Y - ring[0].m_Y);
    }
    return area;
}

}  // namespace

SGridStrip OnGrid(const SFreeStrip& strip, const SGrid& grid) {
    return {RoundedDown(strip.m_Width, grid), RoundedUp(strip.m_Spacing, grid),
            RoundedUp(strip.m_Margin, grid)};
}

std::vector<SGridShape> PlacedShapes(std::span<const SPiece> pieces, const SFreePacking& packing) {
    std::vector<SGridShape> shapes;
    shapes.reserve(pieces.size());
    for (const SPiece& piece : pieces) {
        shapes.push_back(OnGrid(piece.m_Shape, packing.m_Grid));
    }
    std::vector<SGridShape> placed;
    placed.reserve(packing.m_Placed.size());
    for (const SFreePlacement& placement : packing.m_Placed) {
        SGridShape shape =
            Laid(shapes[static_cast<size_t>(placement.m_nPiece)], placement.m_Degrees, placement.m_bMirrored);
        Move(shape.m_Outline, placement.m_At);
        for (CGridRing& hole : shape.m_Holes) {
            Move(hole, placement.m_At);
        }
        placed.push_back(std::move(shape));
    }
    return placed;
}

int64_t HeightOf(std::span<const SGridShape> placed) {
    int64_t nHeight = 0;
    for (const SGridShape& shape : placed) {
        for (const SGridPoint point : shape.m_Outline) {
            nHeight = std::max(nHeight, point.m_nY);
        }
    }
    return nHeight;
}

double AreaOf(const SShape& shape) {
    double area = std::abs(TwiceAreaOf(shape.m_Outline));
    for (const CRing& hole : shape.m_Holes) {
        area -= std::abs(TwiceAreaOf(hole));
    }
    return std::max(area / 2.0, 0.0);
}

double DensityOf(std::span<const SPiece> pieces, const SFreePacking& packing) {
    double area = 0.0;
    for (const SFreePlacement& placement : packing.m_Placed) {
        area += AreaOf(pieces[static_cast<size_t>(placement.m_nPiece)].m_Shape);
    }
    const double taken = packing.m_Strip.m_Width * packing.m_Grid.Length(packing.m_nHeight);
    return taken > 0.0 ? area / taken : 0.0;
}

}  // namespace nestrix
