#include "nest/TurnsToTry.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "nest/GridGeometry.h"

namespace nestrix {

namespace {

/// Where a piece may be turned by any angle, these steps are tried, in degrees.
constexpr double STEP_OF_ANY = 15.0;

double Rounded(double degrees) {
    return std::round(degrees * 1e6) / 1e6;
}

/// The turn that lays the edge from a to b along the floor, to the right.
double LevelTurnOf(SGridPoint a, SGridPoint b) {
    constexpr double DEGREES_IN_A_RADIAN = 57.29577951308232;
    const double x = static_cast<double>(b.m_nX - a.m_nX);
    const double y = static_cast<double>(b.m_nY - a.m_nY);
    return -Rounded(std::atan2(y, x) * DEGREES_IN_A_RADIAN);
}

double LengthOf(SGridPoint a, SGridPoint b) {
    return std::hypot(static_cast<double>(b.m_nX - a.m_nX), static_cast<double>(b.m_nY - a.m_nY));
}

double TurnOfLongestSide(const CGridRing& hull) {
    double longest = 0.0;
    double turn = 0.0;
    for (size_t i = 0; i < hull.size(); ++i) {
        const SGridPoint a = hull[i];
        const SGridPoint b = hull[(i + 1) % hull.size()];
        if (LengthOf(a, b) > longest) {
            longest = LengthOf(a, b);
            turn = LevelTurnOf(a, b);
        }
    }
    return turn;
}

/// A hull is narrowest across one of its sides (Freeman and Shapira 1975): that side goes along a wall.
double NarrowestTurn(const SGridShape& shape, const CGridRing& hull) {
    int64_t nNarrowest = std::numeric_limits<int64_t>::max();
    double narrowest = 0.0;
    for (size_t i = 0; i < hull.size(); ++i) {
        const double turn = LevelTurnOf(hull[i], hull[(i + 1) % hull.size()]) + 90.0;
        const int64_t nWidth = BoxOf(Laid(shape, turn, false).m_Outline).Width();
        if (nWidth < nNarrowest) {
            nNarrowest = nWidth;
            narrowest = turn;
        }
    }
    return narrowest;
}

/// Whether a side that is not short runs along an axis.
bool HasLevelSide(const SGridShape& shape) {
    constexpr double NOT_SHORT = 0.25;  ///< of the box's longer side
    const CGridRing& outline = shape.m_Outline;
    const SGridBox box = BoxOf(outline);
    const double least = NOT_SHORT * static_cast<double>(std::max(box.Width(), box.Height()));
    for (size_t i = 0; i < outline.size(); ++i) {
        const SGridPoint a = outline[i];
        const SGridPoint b = outline[(i + 1) % outline.size()];
        if ((a.m_nX == b.m_nX || a.m_nY == b.m_nY) && LengthOf(a, b) >= least) {
            return true;
        }
    }
    return false;
}

}  // namespace

EBase FindBase(std::span<const SPiece> pieces, const SGrid& grid) {
    size_t nPieces = 0;
    size_t nLevel = 0;
    for (const SPiece& piece : pieces) {
        if (piece.m_Turns.m_bAny && piece.m_nQuantity > 0) {
            ++nPieces;
            nLevel += HasLevelSide(OnGrid(piece.m_Shape, grid)) ? 1 : 0;
        }
    }
    return 2 * nLevel >= nPieces ? EBase::DRAWING : EBase::LONGEST_SIDE;
}

double NormalisedTurn(double degrees) {
    const double rest = std::fmod(degrees, 360.0);
    return rest < 0.0 ? rest + 360.0 : rest + 0.0;
}

double TurnAsWritten(double degrees) {
    return NormalisedTurn(Rounded(NormalisedTurn(degrees)));
}

double STurnsToTry::DegreesOf(double step) const {
    // What is listed stays as it is.
    return m_Base == 0.0 ? NormalisedTurn(step) : TurnAsWritten(m_Base + step);
}

STurnsToTry FindTurnsToTry(const SPiece& piece, bool bMirrored, const SGrid& grid, int64_t nRoom,
                           EBase eBase) {
    STurnsToTry turns;
    if (!piece.m_Turns.m_bAny) {
        for (const double degrees : piece.m_Turns.m_Degrees) {
            turns.m_Steps.push_back(NormalisedTurn(degrees));
        }
        std::sort(turns.m_Steps.begin(), turns.m_Steps.end());
        turns.m_Steps.erase(std::unique(turns.m_Steps.begin(), turns.m_Steps.end()), turns.m_Steps.end());
        return turns;
    }
    for (double step = 0.0; step < 360.0; step += STEP_OF_ANY) {
        turns.m_Steps.push_back(step);
    }
    const SGridShape shape = Laid(OnGrid(piece.m_Shape, grid), 0.0, bMirrored);
    const CGridRing hull = HullOf(shape.m_Outline);
    turns.m_Base = eBase == EBase::DRAWING ? 0.0 : TurnOfLongestSide(hull);
    const bool bFits = std::any_of(turns.m_Steps.begin(), turns.m_Steps.end(), [&](double step) {
        return BoxOf(Laid(shape, turns.m_Base + step, false).m_Outline).Width() <= nRoom;
    });
    if (!bFits) {
        turns.m_Base = NarrowestTurn(shape, hull);
    }
    return turns;
}

}  // namespace nestrix
