#pragma once

#include <dxflib/dl_entities.h>

#include <string>
#include <vector>

#include "drawing/SDrawing.h"

namespace nestrix {

/// A TEXT or an attribute of an insertion, in the plane that it lies in; without layer and line.
[[nodiscard]] SDrawnText TextOf(const DL_TextData& data);

/// The lines of an MTEXT, of which dxflib told the text but for its end before; without layer and line. Its
/// place and direction are those of the drawing, not of the plane.
[[nodiscard]] std::vector<SDrawnText> LinesOf(const DL_MTextData& data, const std::string& before);

}  // namespace nestrix
