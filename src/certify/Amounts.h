#pragma once

#include "certify/SBorder.h"

namespace nestrix::certify {

// How wrong something is, for a user to read: computed in floating point, and never asked whether it is
// wrong.

/// How deep two shapes that overlap reach into each other, in units of the grid: the greatest distance from
/// the other's border of any point of one that lies inside the other, of those where an edge ends and those
/// in the middle between two neighbouring meetings of an edge with the other border. Where the borders run
/// over each other, and no such point is inside, half of the way across from the middle of an edge.
[[nodiscard]] double DepthOf(const SBorder& first, const SBorder& second);

/// The distance of two borders in units of the grid; they are within reach of each other.
[[nodiscard]] double DistanceBetween(const SBorder& first, const SBorder& second, int64_t nReach);

}  // namespace nestrix::certify
