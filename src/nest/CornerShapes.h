#pragma once

#include <vector>

#include "nest/CPackProblem.h"
#include "nest/Sectors.h"

namespace nestrix {

/// An outline as its sides, each with the corner in which it begins; counter-clockwise, relative to the
/// reference point, in units.
struct SCornerShape {
    /// A side of a border, with its inside to the left.
    struct SSide {
        SPoint m_From;
        SPoint m_Along;  ///< of length 1
        double m_Length = 0.0;
        SSector m_Corner;  ///< the directions from m_From that lead inside
    };

    std::vector<SSide> m_Sides;
    SPlaneBox m_Box;
    double m_Perimeter = 0.0;
};

[[nodiscard]] SCornerShape CornerShapeOf(const SVersion& version);

/// The directions from a point that lead into a shape: nothing of them where the point is outside by more
/// than the tolerance, all where it is inside by more.
/// @param at relative to the shape's reference point.
void AddInnerDirections(const SCornerShape& shape, SPoint at, double tolerance, std::vector<SSector>& taken);

/// How much of a shape's area lies below a height.
/// @param height relative to the shape's reference point.
[[nodiscard]] double AreaBelow(const SCornerShape& shape, double height);

/// How long the borders of two shapes run along each other, outside against outside, at most the tolerance
/// apart.
/// @param at the place of the first less that of the second.
[[nodiscard]] double ContactOf(const SCornerShape& first, const SCornerShape& second, SPoint at,
                               double tolerance);

}  // namespace nestrix
