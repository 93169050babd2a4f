#pragma once

#include <vector>

#include "packing/drop/CProfileSet.h"
#include "packing/drop/SEdge.h"

namespace nestrix {

/// Cuts the x range of the edges into cells and enters in each what the edges over it give.
/// @param draft the same edges, not yet laid out, sorted by low x; at least one.
/// @param fLargestX no x in the strip is larger in absolute value.
void CutIntoCells(const std::vector<SEdge>& draft, float fLargestX, SProfileEdges& edges);

}  // namespace nestrix
