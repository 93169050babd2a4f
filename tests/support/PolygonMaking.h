#pragma once

#include <string>

#include "geom/Geom.h"
#include "tests/support/Outlines.h"

namespace nestrix::support {

/// A polygon as a file would give it, with its profiles analysed.
[[nodiscard]] CPolygon MakePolygon(const Outline& outline, const mgVector3& boxMin, const mgVector3& boxMax);

/// The same with the box that just encloses the outline.
[[nodiscard]] CPolygon MakePolygon(const Outline& outline);

/// The vertices and the box of MakePolygon before the analysis.
[[nodiscard]] CPolygon MakeRawPolygon(const Outline& outline, const mgVector3& boxMin,
                                      const mgVector3& boxMax);

/// A square with its lower-left corner on the origin.
[[nodiscard]] CPolygon MakeSquare(float fSide);

[[nodiscard]] CPolygon MakeRectangle(float fWidth, float fHeight);

/// The polygon with its reference point set.
[[nodiscard]] CPolygon PlacedAt(CPolygon polygon, float fX, float fY);

/// The text of the ".pol" file that the polygon's vertices and box read back from, bit for bit.
[[nodiscard]] std::string PolygonFileText(const CPolygon& polygon);

}  // namespace nestrix::support
