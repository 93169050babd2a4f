#pragma once

#include <optional>
#include <span>

#include "drawing/SDrawnPiece.h"
#include "packing/SFreePacking.h"

namespace nestrix {

/// A packing together with what it was drawn from: all that a file for a cutter is made of. It views what
/// others own.
struct SCutPlan {
    std::span<const SPiece> m_Pieces;      ///< the set that is packed
    std::span<const SDrawnPiece> m_Drawn;  ///< as many, in the same order
    const SFreePacking& m_Packing;
    std::optional<EUnit> m_Unit;  ///< of the strip; absent where no input named one
};

}  // namespace nestrix
