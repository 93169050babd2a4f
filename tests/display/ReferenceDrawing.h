#pragma once

#include "display/CPlotter.h"
#include "display/CPolyDisplay.h"
#include "tests/display/CReferenceCanvas.h"

namespace nestrix::support {

/// What a packing canvas of 400 x 600 units should show with these overlays, drawn a second time as literally
/// as possible. Changes only with the definition of that picture.
[[nodiscard]] CPicture PackingAsDefined(CReferenceCanvas& canvas, const CPolyDisplay& display);

/// What a plotter should show of its points and its range, likewise.
[[nodiscard]] CPicture PlotAsDefined(CReferenceCanvas& canvas, const CPlotter& plotter);

}  // namespace nestrix::support
