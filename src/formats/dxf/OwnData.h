#pragma once

#include <string_view>

namespace nestrix::own_data {

// What a written packing says beyond what DXF has words for, as extended data of its entities: so it can be
// read back with the names of its pieces, and without what is there for people only.

inline constexpr std::string_view APPLICATION = "NESTRIX";

/// The first string of something that belongs to a piece; the others together are the piece's name.
inline constexpr std::string_view PIECE = "piece";

/// The only string of what is no part of any piece: the strip and the labels.
inline constexpr std::string_view GUIDE = "guide";

}  // namespace nestrix::own_data
