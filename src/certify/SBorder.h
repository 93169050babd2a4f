#pragma once

#include <vector>

#include "certify/SGridBox.h"
#include "packing/SGrid.h"

namespace nestrix::certify {

/// A straight piece of a border: the inside is to its left.
struct SBorderEdge {
    SGridPoint m_From;
    SGridPoint m_To;
    int m_nChain = 0;  ///< neighbours in the list with the same number are joined end to end
};

[[nodiscard]] inline SGridBox BoxOf(const SBorderEdge& edge) {
    return {{std::min(edge.m_From.m_nX, edge.m_To.m_nX), std::min(edge.m_From.m_nY, edge.m_To.m_nY)},
            {std::max(edge.m_From.m_nX, edge.m_To.m_nX), std::max(edge.m_From.m_nY, edge.m_To.m_nY)}};
}

/// Where the inside of a shape ends: its outline walked counter-clockwise and its holes clockwise, without
/// edges of no length and without seams. No point at which it touches itself lies between the ends of an
/// edge: beside such a point the inside is not on all of one side.
///
/// A point's winding number is how often the border goes round it, counter-clockwise less clockwise. The
/// inside of the shape is where it is positive; in a sound shape it is 0 or 1 everywhere.
///
/// A seam is where edges run over each other in opposite directions: a cut in an outline that leads to a
/// hole, a spike without a width, a hole's side that lies on the outline. The inside does not end there, or
/// is on neither side; the winding numbers are the same without it.
struct SBorder {
    std::vector<SBorderEdge> m_Edges;
    SGridBox m_Box;
};

/// All edges of the shape that have a length, seams and all; each ring is a chain.
[[nodiscard]] std::vector<SBorderEdge> DirectedEdges(const SGridShape& shape);

[[nodiscard]] SBorder BorderOf(const SGridShape& shape);

}  // namespace nestrix::certify
