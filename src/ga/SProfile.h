#pragma once

#include <cstddef>
#include <optional>
#include <vector>

#include "Polygon.h"

/// One half of an outline, flat and sorted by x, so that two halves are compared in one sweep.
///
/// All x lie in one block, so that one loop moves them to an offset: the points, then the low ends, the high
/// ends and the reaches of the edges. The reach of an edge is the largest high end up to and including it:
/// edges may overlap in x where the outline is not convex, and the reach tells when all up to here lie
/// behind. Rounding is monotonic, so a moved block is still sorted.
struct SHalfProfile {
    size_t m_nPoints = 0;
    size_t m_nEdges = 0;     ///< without the vertical ones
    std::vector<float> m_X;  ///< nPoints + 3 · nEdges
    std::vector<float> m_Y;  ///< of the points, then of the edges' starts
    std::vector<double> m_Slopes;
    size_t m_nStarts = 0;  ///< where in m_X the edges' starts lie: LowEnds or HighEnds
    double m_fLow = 0.0;   ///< no point and no height on an edge is lower, at any offset in the strip
    double m_fHigh = 0.0;  ///< nor higher

    [[nodiscard]] size_t LowEnds() const { return m_nPoints; }
    [[nodiscard]] size_t HighEnds() const { return m_nPoints + m_nEdges; }
    [[nodiscard]] size_t Reaches() const { return m_nPoints + 2 * m_nEdges; }
};

/// A vertical edge of a lower profile: x local, y at the starting height.
struct SVerticalSide {
    float m_fX;
    float m_fLow;
    float m_fHigh;
};

/// The profiles of one polygon, prepared once for all the drops of a search.
struct SProfile {
    SHalfProfile m_Front;  ///< x local, y at the starting height; edges start at their low ends
    std::vector<SVerticalSide> m_Verticals;  ///< the vertical front edges
    SHalfProfile m_Back;                     ///< local; edges start at their high ends
};

/// What all profiles of a set depend on.
struct SProfileFrame {
    float m_fStartY;  ///< the height that all polygons fall from
    float m_fReach;   ///< no x in the strip is larger in absolute value
};

/// Prepares a polygon's profiles. Nothing for a polygon that the sweeps cannot take: coordinates that are not
/// finite or huge, or edges that the profile analysis would not have made.
[[nodiscard]] std::optional<SProfile> PrepareProfile(const CPolygon& polygon, const SProfileFrame& frame);
