#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

#include "Polygon.h"

/// One half of an outline, flat, and sorted so that two halves are compared at a few places only.
///
/// The points come in the order in which they lead towards the other half: the lowest first for a lower
/// profile, the highest first for an upper one. The edges come in the order of their low ends in x. The reach
/// of an edge is the largest high end up to and including it: edges may overlap in x where the outline is not
/// convex, and the first edge that reaches a given x has as many reaches before it as are smaller. Rounding
/// is monotonic, so all this still holds when the half is moved.
///
/// All x lie in one block, so that one loop moves them, and all y in another: each kind of value filled up to
/// whole lanes.
struct SHalfProfile {
    const float* m_pX = nullptr;        ///< the points, then the edges' low ends, high ends and reaches
    const float* m_pY = nullptr;        ///< the points, then the edges' starts
    const double* m_pSlopes = nullptr;  ///< of the edges
    uint32_t m_nPoints = 0;
    uint32_t m_nEdges = 0;       ///< without the vertical ones
    uint32_t m_nPointLanes = 0;  ///< m_nPoints filled up
    uint32_t m_nEdgeLanes = 0;   ///< m_nEdges filled up
    uint32_t m_nStarts = 0;      ///< where in m_pX the edges' starts lie: LowEnds or HighEnds
    float m_fLow = 0.0F;         ///< no point and no height on an edge is lower, at any offset in the strip
    float m_fHigh = 0.0F;        ///< nor higher

    [[nodiscard]] size_t LowEnds() const { return m_nPointLanes; }
    [[nodiscard]] size_t HighEnds() const { return LowEnds() + m_nEdgeLanes; }
    [[nodiscard]] size_t Reaches() const { return HighEnds() + m_nEdgeLanes; }
    [[nodiscard]] size_t CountX() const { return Reaches() + m_nEdgeLanes; }
    [[nodiscard]] size_t CountY() const { return size_t{m_nPointLanes} + m_nEdgeLanes; }
};

/// A vertical edge of a lower profile: x local, y at the starting height.
struct SVerticalSide {
    float m_fX;
    float m_fLow;
    float m_fHigh;
};

/// The profiles of one polygon.
struct SProfile {
    SHalfProfile m_Front;  ///< x local, y at the starting height; edges start at their low ends
    SHalfProfile m_Back;   ///< local; edges start at their high ends
    std::span<const SVerticalSide> m_Verticals;  ///< the vertical front edges
};

/// The profiles of a polygon set, prepared once for all the drops of a search. The profiles of one polygon
/// lie side by side in memory: a drop touches few cache lines.
class CProfileSet {
public:
    /// @param fStartY the height that all polygons fall from.
    /// @param fReach no x in the strip is larger in absolute value.
    CProfileSet(std::span<const CPolygon> polygons, float fStartY, float fReach);
    CProfileSet(const CProfileSet&) = delete;
    CProfileSet& operator=(const CProfileSet&) = delete;

    /// False if one of the polygons cannot be prepared: coordinates that are not finite or huge, or edges
    /// that the profile analysis would not have made. Then there are no profiles at all.
    [[nodiscard]] bool IsComplete() const { return m_bComplete; }

    [[nodiscard]] const SProfile& Of(int nPolygon) const { return m_Profiles[static_cast<size_t>(nPolygon)]; }

    [[nodiscard]] bool HasVerticals() const { return !m_Verticals.empty(); }

    /// The number of points of all upper profiles.
    [[nodiscard]] size_t CountBackPoints() const;

    /// The number of values in the largest block of x of all lower profiles.
    [[nodiscard]] size_t LargestFront() const;

private:
    bool m_bComplete = true;
    std::vector<SProfile> m_Profiles;
    std::vector<float> m_Values;  ///< never reallocated once the profiles point into it
    std::vector<double> m_Slopes;
    std::vector<SVerticalSide> m_Verticals;
};
