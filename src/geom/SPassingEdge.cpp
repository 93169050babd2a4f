#include "geom/SPassingEdge.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace nestrix {

namespace {

/// Each of the four operations in a height is off by 2^-53 of its result at most. The rise gathers three such
/// errors on the way to the sum, and the sum adds one: 2^-53 times (start + 4 rises), here taken as eight of
/// both, which leaves room for the rounding of whatever is done with two heights.
float NoiseOf(double startHeight, double largestRise) {
    const double noise = 0x1p-50 * (std::abs(startHeight) + std::abs(largestRise));
    // Up, since otherwise that of the smallest coordinates would be 0.
    return std::nextafter(static_cast<float>(noise), std::numeric_limits<float>::infinity());
}

}  // namespace

std::optional<SPassingEdge> SPassingEdge::Make(const COutlineSide& outline, int nEdge) {
    const mgVector3& start = outline.StartOf(nEdge);
    const mgVector3& end = outline.EndOf(nEdge);
    const mgVector3& direction = outline.Edge(nEdge).m_Direction;
    const double slope = static_cast<double>(direction.y) / static_cast<double>(direction.x);
    if (outline.IsVertical(nEdge) || !std::isfinite(start.x) || !std::isfinite(start.y) ||
        std::isnan(slope)) {
        return std::nullopt;
    }
    // Level edges have no noise, and neither have those whose every height is infinite. An edge without an
    // end in x is level.
    const bool bExact = slope == 0.0 || std::isinf(slope);
    const double rise = slope * (static_cast<double>(end.x) - static_cast<double>(start.x));
    const auto [fLowX, fHighX] = std::minmax(start.x, end.x);
    return SPassingEdge{outline.HeightOf(slope),
                        start.x,
                        outline.HeightOf(start.y),
                        fLowX,
                        fHighX,
                        bExact ? 0.0F : NoiseOf(static_cast<double>(start.y), rise),
                        nEdge};
}

}  // namespace nestrix
