#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// Where two edges cross.
struct SCrossing {
    size_t m_nFirst = 0;   ///< index of a ring
    size_t m_nSecond = 0;  ///< the same for an edge that crosses another of its ring; else a higher one
    SPoint m_At;
};

/// Finds where rings cross themselves or each other, in the order in which it comes to them; to touch is not
/// to cross. Two rings that cross are named once, however often they do.
[[nodiscard]] std::vector<SCrossing> FindCrossings(std::span<const CRing> rings);

}  // namespace nestrix
