#pragma once

#include <cstring>
#include <limits>

#include "base/Lanes.h"

namespace nestrix {

/// Four edges, or one four times, at their place in the strip.
struct SEdgeLanes {
    FloatLanes m_Low;   ///< the low ends in x
    FloatLanes m_High;  ///< the high ends in x
    FloatLanes m_StartX;
    FloatLanes m_StartY;
    const double*
        m_pSlopes;  ///< four; by pointer, since compilers disagree on how lanes of double are passed
};

/// The gaps between four points and the edges below them, infinite where a point is not above its edge. The
/// formula is that of the hit test, with the slope divided out beforehand.
[[nodiscard]] inline FloatLanes GapsBelow(FloatLanes x, FloatLanes y, const SEdgeLanes& edges) {
    constexpr float NONE = std::numeric_limits<float>::infinity();
    DoubleLanes slopes;
    std::memcpy(&slopes, edges.m_pSlopes, sizeof slopes);
    const DoubleLanes along =
        __builtin_convertvector(x, DoubleLanes) - __builtin_convertvector(edges.m_StartX, DoubleLanes);
    const DoubleLanes heights = __builtin_convertvector(edges.m_StartY, DoubleLanes) + slopes * along;
    // A point lies below an edge where the difference has its sign bit set. Adding 0 turns −0, which would
    // seem to lie below 0, into 0.
    const DoubleLanes above = (__builtin_convertvector(y, DoubleLanes) + 0.0) - heights;
    const FlagLanes signs = __builtin_bit_cast(FlagLanes, __builtin_convertvector(above, FloatLanes));
    const FlagLanes meets = (edges.m_Low <= x) & (edges.m_High >= x) & (signs >= 0);
    return meets ? y - __builtin_convertvector(heights, FloatLanes) : FloatLanes{} + NONE;
}

}  // namespace nestrix
