#pragma once

#include <string>

#include "packing/SPiece.h"

namespace nestrix {

/// A length or a coordinate for people: at most four digits after the point.
[[nodiscard]] std::string InWords(double length);

/// "(x, y)".
[[nodiscard]] std::string InWords(SPoint point);

}  // namespace nestrix
