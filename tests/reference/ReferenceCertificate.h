#pragma once

#include <cstdint>
#include <span>
#include <string>
#include <vector>

#include "certify/Certify.h"
#include "packing/SFreePacking.h"

namespace nestrix {

namespace reference {

// The certificate a second time, plainly: the plane is cut into level slabs between all heights at which an
// edge ends or meets another, and the winding numbers are counted from left to right in each. All in
// fractions of whole numbers, which are exact for coordinates of up to REFERENCE_COORDINATE_MOST.

inline constexpr int64_t REFERENCE_COORDINATE_MOST = 300;

/// Whether the insides of two shapes share points. The inside is where the outline, walked counter-clockwise,
/// with the holes, walked clockwise, goes round more often counter-clockwise than clockwise.
[[nodiscard]] bool DoInsidesOverlap(const SGridShape& first, const SGridShape& second);

/// Whether the shape has an inside, nothing crosses, and it goes once round the inside and not at all round
/// anything else.
[[nodiscard]] bool IsSound(const SGridShape& shape);

/// Whether shapes whose insides do not overlap are nearer to each other than the distance. Spikes without a
/// width do not count.
[[nodiscard]] bool AreNearer(const SGridShape& first, const SGridShape& second, int64_t nDistance);

/// What Certify finds, without the amounts, and in an order of its own: of packings on a grid of whole units,
/// with whole degrees.
[[nodiscard]] std::vector<SViolation> FindViolations(std::span<const SPiece> pieces,
                                                     const SFreePacking& packing);

/// The first difference of Certify and FindViolations in words, or nothing.
[[nodiscard]] std::string FindCertificateDifference(std::span<const SPiece> pieces,
                                                    const SFreePacking& packing);

}  // namespace reference

}  // namespace nestrix
