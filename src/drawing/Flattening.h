#pragma once

#include <vector>

#include "drawing/SPath.h"

namespace nestrix {

/// On which side of a line the material is, for who walks along it.
enum class ESide { LEFT, RIGHT };

/// A closed path as a ring that has all of the path's material within: around curves that bulge out of the
/// material its edges are tangents, in those that bulge into it they are chords. None of it is farther from
/// the path than the tolerance, or a hundred millionth of a curve's size if that is more.
[[nodiscard]] CRing FlattenedAway(const SPath& path, ESide eMaterial, double tolerance);

/// A path as points on it; the straight lines between them leave it by no more than the tolerance. From its
/// start to its end, both included.
[[nodiscard]] std::vector<SPoint> Chords(const SPath& path, double tolerance);

}  // namespace nestrix
