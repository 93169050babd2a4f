#pragma once

#include <cstddef>
#include <string>
#include <vector>

#include "drawing/CFindingLog.h"
#include "drawing/SDrawnPiece.h"

namespace nestrix {

/// A line in the units of the strip, joined of as many of the drawing's as belong together.
struct SFoundLine {
    SPath m_Path;
    size_t m_nDrawn = 0;  ///< the first of the drawing's lines that it is made of
    std::string m_Name;   ///< that of the first which has one
    int m_nLine = 0;
};

/// What the lines of a drawing are good for.
struct SFoundLines {
    std::vector<SFoundLine> m_Contours;  ///< closed, and with an inside
    std::vector<SFoundLine> m_Marks;     ///< all others
};

/// The lines of a drawing, joined, in its order; without those that are a point, drawn twice, or cannot be
/// calculated with.
[[nodiscard]] SFoundLines FindLines(const SDrawing& drawing, const SAssembly& assembly, CFindingLog& log);

}  // namespace nestrix
