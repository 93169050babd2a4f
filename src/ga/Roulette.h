#pragma once

#include <span>

namespace nestrix {

/// The roulette: draws an entry in proportion to its share, with the C library's rand().
///
/// Each slice of the wheel is one percentage point wider at its upper end than its share, at the expense of
/// the next entry; shares that are not numbers give entry 0. Both are deliberate.
///
/// @param shares fractions that add up to about 1.
/// @return the entry's index, or −1, after a line on standard output, if the wheel fell short of the draw.
[[nodiscard]] int DrawEntry(std::span<const float> shares);

/// As DrawEntry, with the entry nExclude ≥ 0 left out and the others scaled to add up to 1. The result
/// indexes the shortened list and is deliberately not translated back, so the second parent may equal the
/// first, and the last chromosome is never a second parent.
[[nodiscard]] int DrawEntryExcept(std::span<const float> shares, int nExclude);

}  // namespace nestrix
