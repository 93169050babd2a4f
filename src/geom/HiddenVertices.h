#pragma once

#include <vector>

#include "geom/COutlineSide.h"

namespace nestrix {

/// Which vertices of an outline are hidden, as CPolygon::DoesPointHitAnyLineDownward (Below) or …Upward
/// (Above) says, but without a look at every edge for each of them: in O(n log² n) time, whatever the
/// outline, unless very many edges pass within a few roundings of very many vertices.
///
/// Only vertices with an adjacent edge of the side's own profile are looked at; the others count as exposed.
///
/// @param polygon with edges, links and classes as the first steps of the analysis make them.
[[nodiscard]] std::vector<bool> FindHiddenVertices(const CPolygon& polygon, ESide side);

}  // namespace nestrix
