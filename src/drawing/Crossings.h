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
    SPoint m_At;
};

/// Finds where rings cross themselves or each other, at their corners too. To touch is not to cross; of edges
/// that run over each other nothing is told. What is as small as rounding beside the whole is none. Two rings
/// that cross are named once, however often they do, in the order of their indices.
/// @param rings finite.
[[nodiscard]] std::vector<SCrossing> FindCrossings(std::span<const CRing> rings);

}  // namespace nestrix
