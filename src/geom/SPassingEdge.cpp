#include "geom/SPassingEdge.h"

#include <algorithm>
#include <cmath>

#include "geom/RoundingMargins.h"

namespace nestrix {

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
                        bExact ? 0.0F : LineHeightMargin(static_cast<double>(start.y), rise),
                        nEdge};
}

}  // namespace nestrix
