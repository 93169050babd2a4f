#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// Where two edges cross.
struct SCrossing {
    size_t m_nFirst = 0;   ///< index of a ring
    size_t m_nSecond = 0;  ///< the same for a ring that crosses itself, else a higher one
    SPoint m_At;           ///< the lowest of the leftmost places
};

/// Finds where rings cross themselves or each other, at their corners too. To touch is not to cross, nor is
/// it to run over each other in opposite directions; in the same direction it is, since then there is
/// material on the same side of both. What is as small as rounding beside the whole is no crossing. Two rings
/// that cross are named once, however often they do, in the order of their indices.
/// @param rings finite, and walked with the material to their left.
[[nodiscard]] std::vector<SCrossing> FindCrossings(std::span<const CRing> rings);

/// The same for the rings of a shape in any winding: the outline is ring 0, the first hole ring 1.
[[nodiscard]] std::vector<SCrossing> FindCrossings(const SShape& shape);

}  // namespace nestrix
