#include <cmath>
#include <cstdio>
#include <utility>

#include "certify/Certify.h"
#include "nest/GridGeometry.h"
#include "nest/PackFreely.h"
#include "nest/TurnsToTry.h"

namespace nestrix {

namespace {

bool IsFinite(const CRing& ring) {
    return std::all_of(ring.begin(), ring.end(), [](const SPoint& point) {
        return std::isfinite(point.m_X) && std::isfinite(point.m_Y);
    });
}

/// Whether all points are so near to the ring's first that they can be counted in units of the grid.
bool FitsGrid(const CRing& ring, SPoint origin, const SGrid& grid) {
    const double most = grid.Length(GRID_LENGTH_MOST / 4);
    return std::all_of(ring.begin(), ring.end(), [&](const SPoint& point) {
        return std::abs(point.m_X - origin.m_X) <= most && std::abs(point.m_Y - origin.m_Y) <= most;
    });
}

/// Whether a point lies inside the ring or on it, by the crossings of a line to the right.
bool IsInOrOn(SGridPoint point, const CGridRing& ring) {
    bool bInside = false;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SGridPoint a = ring[i];
        const SGridPoint b = ring[(i + 1) % ring.size()];
        const CInt128 side = Turn(a, b, point);
        if (side == 0 && std::min(a.m_nX, b.m_nX) <= point.m_nX && point.m_nX <= std::max(a.m_nX, b.m_nX) &&
            std::min(a.m_nY, b.m_nY) <= point.m_nY && point.m_nY <= std::max(a.m_nY, b.m_nY)) {
            return true;
        }
        if ((a.m_nY > point.m_nY) != (b.m_nY > point.m_nY) && (side > 0) == (b.m_nY > a.m_nY)) {
            bInside = !bInside;
        }
    }
    return bInside;
}

std::string FaultOfShape(const SShape& shape, const SGrid& grid) {
    if (shape.m_Outline.empty()) {
        return "it has no outline";
    }
    const bool bFinite =
        IsFinite(shape.m_Outline) && std::all_of(shape.m_Holes.begin(), shape.m_Holes.end(), IsFinite);
    if (!bFinite) {
        return "a number of its outline is not finite";
    }
    const SPoint origin = shape.m_Outline.front();
    const bool bFits = FitsGrid(shape.m_Outline, origin, grid) &&
                       std::all_of(shape.m_Holes.begin(), shape.m_Holes.end(),
                                   [&](const CRing& hole) { return FitsGrid(hole, origin, grid); });
    if (!bFits) {
        return "it is too large for the strip's width to be calculated with";
    }
    const SGridShape clean = Cleaned(OnGrid(shape, grid));
    if (clean.m_Outline.empty()) {
        return "its outline has no inside";
    }
    if (CrossesItself(clean)) {
        return "its outline crosses itself";
    }
    for (const CGridRing& hole : clean.m_Holes) {
        if (!std::all_of(hole.begin(), hole.end(),
                         [&](SGridPoint point) { return IsInOrOn(point, clean.m_Outline); })) {
            return "one of its holes lies outside of its outline";
        }
    }
    if (!IsSound(clean)) {
        return "its outline or one of its holes lies over another part of it";
    }
    return {};
}

/// Why the piece, whose shape is sound, can lie in the strip in no turn.
std::string FaultOfSize(const SPiece& piece, const SFreeStrip& strip, const SGrid& grid) {
    const SGridStrip gridStrip = OnGrid(strip, grid);
    const SGridShape shape = OnGrid(piece.m_Shape, grid);
    const int64_t nRoom = gridStrip.m_nWidth - 2 * gridStrip.m_nMargin;
    int64_t nNarrowest = std::numeric_limits<int64_t>::max();
    bool bFits = false;
    for (const bool bMirrored : {false, true}) {
        if (bMirrored && !piece.m_bMirrored) {
            continue;
        }
        const STurnsToTry turns = FindTurnsToTry(piece, bMirrored, grid, nRoom, EBase::LONGEST_SIDE);
        for (const double step : turns.m_Steps) {
            const SGridShape laid = Laid(shape, turns.DegreesOf(step), bMirrored);
            const int64_t nWidth = BoxOf(laid.m_Outline).Width();
            nNarrowest = std::min(nNarrowest, nWidth);
            bFits = bFits || (nWidth <= nRoom && IsSound(laid));
        }
    }
    if (bFits) {
        return {};
    }
    if (nNarrowest <= nRoom) {
        return "turned and rounded, it crosses itself where it touches itself as it was drawn";
    }
    char text[160];
    std::snprintf(text, sizeof text, "it is %.6g wide%s, and the strip has room for %.6g",
                  grid.Length(nNarrowest),
                  piece.m_bMirrored || piece.m_Turns.m_bAny || piece.m_Turns.m_Degrees.size() > 1
                      ? " in its narrowest turn"
                      : "",
                  grid.Length(std::max<int64_t>(nRoom, 0)));
    return text;
}

std::string FaultOfTurns(const STurns& turns) {
    if (turns.m_bAny) {
        return {};
    }
    if (turns.m_Degrees.empty()) {
        return "it may be laid in no turn";
    }
    const bool bFinite = std::all_of(turns.m_Degrees.begin(), turns.m_Degrees.end(),
                                     [](double degrees) { return std::isfinite(degrees); });
    return bFinite ? "" : "one of its turns is not finite";
}

std::string FaultOf(const SPiece& piece, const SFreeStrip& strip, const SGrid& grid) {
    if (piece.m_nQuantity < 0) {
        return "its quantity is negative";
    }
    if (std::string fault = FaultOfTurns(piece.m_Turns); !fault.empty()) {
        return fault;
    }
    if (std::string fault = FaultOfShape(piece.m_Shape, grid); !fault.empty()) {
        return fault;
    }
    return FaultOfSize(piece, strip, grid);
}

}  // namespace

std::vector<SUnfitPiece> FindUnfitPieces(std::span<const SPiece> pieces, const SFreeStrip& strip) {
    const SGrid grid = GridFor(strip.m_Width);
    std::vector<SUnfitPiece> unfit;
    for (size_t i = 0; i < pieces.size(); ++i) {
        if (pieces[i].m_nQuantity == 0) {
            continue;
        }
        if (std::string fault = FaultOf(pieces[i], strip, grid); !fault.empty()) {
            unfit.push_back({static_cast<int>(i), std::move(fault)});
        }
    }
    return unfit;
}

}  // namespace nestrix
