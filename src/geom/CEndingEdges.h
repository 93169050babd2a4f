#pragma once

#include <vector>

#include "geom/COutlineSide.h"

namespace nestrix {

/// The edges of an outline by where they end: answers for a vertex whether one of the edges that end at its x
/// hides it.
///
/// Only the three lowest are looked at, since the vertex's own two are the only ones that do not count.
class CEndingEdges {
public:
    /// @param outline must outlive this object.
    explicit CEndingEdges(const COutlineSide& outline);

    [[nodiscard]] bool Hide(const CPoint& vertex) const;

private:
    struct SEnd {
        float m_fX;
        int m_nEdge;
        double m_Height;  ///< from which on the edge hides what lies at its end
    };

    static void Sort(std::vector<SEnd>& ends);
    [[nodiscard]] bool AnyHides(const std::vector<SEnd>& ends, const CPoint& vertex) const;

    const COutlineSide& m_Outline;
    // By x and then by height. Apart, since for a vertex whose y is not a number only the vertical ones
    // count.
    std::vector<SEnd> m_Vertical;
    std::vector<SEnd> m_Sloped;
    int m_nLowestVertical = -1;  ///< the edge; −1 without any
};

}  // namespace nestrix
