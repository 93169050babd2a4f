#pragma once

#include <span>
#include <string>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix {

/// An earlier packing as a start for a search with perhaps other pieces in perhaps another strip: what has
/// the same name and the same shape keeps its place; what there is no more of is left out.
/// @param pieces that are to be packed now.
[[nodiscard]] SFreePacking StartFrom(std::span<const SPiece> earlier, const SFreePacking& packing,
                                     std::span<const SPiece> pieces, const SFreeStrip& strip);

/// What keeps a search from beginning with all of an earlier packing as it was, in words for a user.
/// @param pieces that are to be packed now, without the holes that are to be kept empty.
/// @param start what StartFrom made of it.
[[nodiscard]] std::vector<std::string> FindLosses(const SFreePacking& packing, std::span<const SPiece> pieces,
                                                  const SFreePacking& start);

/// The turns of the earlier pieces, and whether they may be mirrored, for those with the same name and the
/// same shape of which nothing else is said.
[[nodiscard]] std::vector<SPiece> WithTurnsOf(std::span<const SPiece> earlier, std::vector<SPiece> pieces);

}  // namespace nestrix
