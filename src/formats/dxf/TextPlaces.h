#pragma once

#include <optional>
#include <string>
#include <vector>

#include "drawing/SDrawing.h"

namespace nestrix {

// Where the base line of a text begins, which DXF says by various points around it. The width of a text
// depends on a font that may not be there: it is estimated.

/// How a TEXT is placed; the numbers are those of the format.
struct STextAlignment {
    SPoint m_At;
    std::optional<SPoint> m_Aligned;  ///< what m_nHorizontal and m_nVertical are about
    int m_nHorizontal = 0;            ///< left, centred, right, between two points, in the middle, fit
    int m_nVertical = 0;              ///< on the base line, bottom, middle, top
    int m_nFlags = 0;                 ///< 2 for backwards, 4 for upside down
    double m_WidthFactor = 1.0;
    double m_Degrees = 0.0;
};
[[nodiscard]] SDrawnText PlacedText(const std::string& text, double height, const STextAlignment& alignment);

/// How an MTEXT is placed.
struct SParagraph {
    SPoint m_At;
    double m_Height = 0.0;
    double m_Degrees = 0.0;
    int m_nAttachment = 1;  ///< top left, centre, right; middle …; bottom …: 1 to 9
    double m_Spacing = 1.0;
};
[[nodiscard]] std::vector<SDrawnText> PlacedLines(const std::vector<std::string>& lines,
                                                  const SParagraph& paragraph);

/// How wide a text is likely to be, in heights of its capital letters.
[[nodiscard]] double EstimatedWidth(const std::string& text);

}  // namespace nestrix
