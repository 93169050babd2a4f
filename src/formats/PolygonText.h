#pragma once

#include <string>

#include "geom/CPolygon.h"

namespace nestrix {

/// The content of a polygon file. Reading it gives the same vertices and the same box to the last bit.
[[nodiscard]] std::string WritePolygonText(const CPolygon& polygon);

}  // namespace nestrix
