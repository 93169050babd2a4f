#pragma once

#include <cstddef>
#include <cstdint>
#include <limits>
#include <span>
#include <vector>

#include "base/CRelaxed.h"
#include "geom/CPolygon.h"

namespace nestrix {

struct SRange {
    float m_fLow;
    float m_fHigh;
};

/// The points of one half of an outline, in ascending order of y, and filled up to whole lanes.
struct SProfilePoints {
    std::vector<float> m_X;
    std::vector<float> m_Y;
    size_t m_nCount = 0;
};

/// Bounds of the edges over one of the cells of equal width that a half profile with many of them is cut
/// into, but for rounding to float.
struct SProfileCell {
    float m_fLow = std::numeric_limits<float>::infinity();    ///< no edge is lower here
    float m_fHigh = -std::numeric_limits<float>::infinity();  ///< nor higher
};

/// The edges of one half of an outline, vertical ones apart, in ascending order of their low ends in x. Edges
/// may overlap in x where the outline is not convex. Rounding is monotonic, so the order still holds when the
/// half is moved. A lower profile's edges start at their low ends in x, an upper one's at the high ones.
///
/// Filled up so that whole lanes can be read from any edge on, and from one behind the last.
///
/// Which edges there are at some x is found by counting those to the left where edges are few, and through
/// cells where they are many.
struct SProfileEdges {
    std::vector<float> m_LowX;
    std::vector<float> m_HighX;
    std::vector<float> m_StartY;
    std::vector<double> m_Slopes;
    float m_fRight = 0.0F;  ///< the largest high end
    size_t m_nCount = 0;

    /// Of each edge the largest high end up to and including it: as many edges lie before the first one that
    /// gets to some x as of these are smaller.
    std::vector<float> m_RightsSoFar;

    std::vector<SProfileCell> m_Cells;  ///< from the first low end to the largest high end
    std::vector<uint32_t> m_FirstInCell;
    float m_fCellsPerUnit = 0.0F;
    float m_fLastCell = 0.0F;
};

/// One half of an outline, local.
///
/// The points of a lower half fall onto the edges of upper ones, and the points of an upper half rise to the
/// edges of lower ones. The latter is the former upside down, so an upper half's points and a lower half's
/// edges have all y, and the slopes, negated. Rounding does not mind.
struct SHalfProfile {
    SProfilePoints m_Points;
    SProfileEdges m_Edges;
    SRange m_Y{0.0F, 0.0F};  ///< but for rounding to float, nothing lies outside at any offset in the strip
};

/// A vertical edge of a lower profile, local.
struct SVerticalSide {
    float m_fX;
    float m_fLow;
    float m_fHigh;
};

/// The profiles of one polygon.
struct SProfile {
    SHalfProfile m_Front;
    SHalfProfile m_Back;
    std::vector<SVerticalSide> m_Verticals;  ///< the vertical front edges
};

/// The profiles of a polygon set, prepared once for all the drops of a search.
class CProfileSet {
public:
    /// @param fLargestX no x in the strip is larger in absolute value.
    /// @param pAbandoned once this is true, no more profiles are prepared. May be null.
    CProfileSet(std::span<const CPolygon> polygons, float fLargestX,
                const CRelaxed<bool>* pAbandoned = nullptr);

    /// False if one of the polygons cannot be prepared: coordinates that are not finite or huge, or edges
    /// that the profile analysis would not have made. Then the profiles are of no use.
    [[nodiscard]] bool IsComplete() const { return m_bComplete; }

    [[nodiscard]] const SProfile& Of(int nPolygon) const { return m_Profiles[static_cast<size_t>(nPolygon)]; }

    [[nodiscard]] bool HasVerticals() const;

    /// The number of points of all upper profiles.
    [[nodiscard]] size_t CountBackPoints() const;

private:
    bool m_bComplete;
    std::vector<SProfile> m_Profiles;
};

}  // namespace nestrix
