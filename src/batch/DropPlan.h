#pragma once

#include "batch/SInputSet.h"
#include "packing/SFreePacking.h"
#include "packing/SPacking.h"

namespace nestrix {

/// A dropped packing as one of the pieces that the polygons came from, on the grid of a strip so wide: for
/// files that know no other. Where single precision has pieces overlap by the last digit, they still do.
/// @param packing of one polygon for every copy, in the set's order; all its numbers are finite.
[[nodiscard]] SFreePacking OnGrid(const SPacking& packing, const SInputSet& set);

}  // namespace nestrix
