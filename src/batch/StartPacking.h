#pragma once

#include <optional>
#include <span>

#include "packing/SFreePacking.h"

namespace nestrix {

/// An earlier packing as a start for a search with perhaps other pieces in perhaps another strip: what has
/// the same name and the same shape keeps its place; what there is no more of is left out.
/// @param pieces that are to be packed now.
[[nodiscard]] SFreePacking StartFrom(std::span<const SPiece> earlier, const SFreePacking& packing,
                                     std::span<const SPiece> pieces, const SFreeStrip& strip);

}  // namespace nestrix
