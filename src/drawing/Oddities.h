#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/SFinding.h"
#include "packing/SFreePacking.h"

namespace nestrix {

/// What is wrong with a piece or odd about it. Faults: numbers that are not finite, no inside, an outline or
/// holes that cross themselves, each other or lie over each other, a hole outside, a piece that is wider than
/// the strip in all turns allowed or too large to be calculated with. Odd: an outline that runs clockwise,
/// corners that repeat the one before, lie in the middle of a straight line or where the line runs back on
/// itself, an area too small to be meant. Each of them is named once, with how often and where it is first.
/// @param strip absent: nothing is known of it.
/// @param file where the piece comes from, with the line of its outline, 0 if that is not known.
[[nodiscard]] std::vector<SFinding> FindOddities(const SPiece& piece, const std::optional<SFreeStrip>& strip,
                                                 const std::string& file, int nLine);

/// How wide the piece is in the narrowest of its turns; its coordinates are finite.
[[nodiscard]] double NarrowestWidth(const SPiece& piece);

}  // namespace nestrix
