#pragma once

#include <string>

#include "drawing/SCutPlan.h"

namespace nestrix {

/// A packing as a text DXF file (AutoCAD 2000, which most cutters read), in the unit of the plan; points and
/// pixels become inches. No blocks: many cutters cannot read them.
///
/// Layers: CUT has outlines and holes, MARK what is drawn and written on the pieces, LABEL the number of each
/// piece in the order of placing and its name, STRIP the strip up to the packing's height. What belongs to
/// one copy of a piece is a group. Curves stay curves: polylines with bulges where there are only lines and
/// circular arcs, circles, ellipses, and splines for Bezier curves.
///
/// ReadDxf reads the pieces back with their names, and leaves labels and strip out. The same plan gives the
/// same bytes under every locale.
[[nodiscard]] std::string WriteDxfPlan(const SCutPlan& plan);

}  // namespace nestrix
