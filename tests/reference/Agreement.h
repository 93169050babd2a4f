#pragma once

#include <string>
#include <vector>

#include "ga/CContainer.h"
#include "tests/support/Outlines.h"

namespace nestrix {

class CDecoder;

/// Comparisons of the engine with the plain reference. Each runs both on the same input and returns the first
/// difference in words, or nothing when they agree bit for bit.
namespace reference {

/// The profile analysis of one outline.
[[nodiscard]] std::string FindProfileDifference(const support::Outline& outline);

/// One hit test each way; `direction` need not be end − start.
[[nodiscard]] std::string FindHitDifference(const mgVector3& point, const mgVector3& start,
                                            const mgVector3& end, const mgVector3& direction);

/// How far one polygon falls onto another, and where they touch.
[[nodiscard]] std::string FindApproachDifference(const CPolygon& moving, CPolygon& obstacle);

/// One placement of the container's polygons: fitness, resting places, contacts.
[[nodiscard]] std::string FindPlacementDifference(const CContainer& container, const CChromosome& chromosome);

/// The same, trying `placement` too, which must be one of the container's polygons and may have been used.
[[nodiscard]] std::string FindPlacementDifference(const CContainer& container, const CChromosome& chromosome,
                                                  CDecoder& decoder);

}  // namespace reference

}  // namespace nestrix
