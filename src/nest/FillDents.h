#pragma once

#include "packing/SGrid.h"

namespace nestrix {

/// The shape with fewer points and all that was inside it: dents of its outline, and what juts into its
/// holes, are cut off where they are no deeper than `depth`. Where the shape would then overlap itself, the
/// depth is halved until it does not.
/// @param shape cleaned and sound.
/// @param depth in units of the grid.
[[nodiscard]] SGridShape DentsFilled(const SGridShape& shape, double depth);

}  // namespace nestrix
