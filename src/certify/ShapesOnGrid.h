#pragma once

#include <optional>
#include <span>
#include <vector>

#include "packing/SFreePacking.h"

namespace nestrix::certify {

/// Whether the grid is one that can be counted on, and the strip's lengths are positive, or 0 where they may
/// be, and not too long for it.
[[nodiscard]] bool IsUsable(const SFreeStrip& strip, const SGrid& grid);

/// The shape on the grid, if it is sound there and its coordinates are finite and not too long.
[[nodiscard]] std::optional<SGridShape> FindSoundShape(const SShape& shape, const SGrid& grid);

/// The shape laid and moved as a placement says, if its turn is finite and its coordinates are not too long.
[[nodiscard]] std::optional<SGridShape> FindPlacedShape(const SGridShape& shape,
                                                        const SFreePlacement& placement);

}  // namespace nestrix::certify
