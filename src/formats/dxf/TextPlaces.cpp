#include "formats/dxf/TextPlaces.h"

#include <algorithm>

#include "formats/dxf/DxfText.h"
#include "packing/SGrid.h"

namespace nestrix {

namespace {

/// Of letters in a usual sans serif font, in heights of its capital letters.
constexpr double LETTER_WIDTH = 0.75;
constexpr double DEPTH_BELOW = 1.0 / 3.0;
constexpr double LINE_DISTANCE = 5.0 / 3.0;

constexpr int BACKWARDS = 2;
constexpr int UPSIDE_DOWN = 4;

enum EHorizontal { LEFT, CENTRED, RIGHT, BETWEEN_POINTS, IN_THE_MIDDLE, FIT };
enum EVertical { BASE_LINE, BOTTOM, MIDDLE, TOP };

SPoint Moved(SPoint from, double degrees, double along, double up) {
    const SDirection direction = DirectionOf(degrees);
    return {from.m_X + along * direction.m_Cosine - up * direction.m_Sine,
            from.m_Y + along * direction.m_Sine + up * direction.m_Cosine};
}

double ShareBefore(int nHorizontal) {
    return nHorizontal == CENTRED || nHorizontal == IN_THE_MIDDLE ? 0.5 : nHorizontal == RIGHT ? 1.0 : 0.0;
}

double HeightBelow(const STextAlignment& alignment, double height) {
    if (alignment.m_nHorizontal == IN_THE_MIDDLE || alignment.m_nVertical == MIDDLE) {
        return height / 2.0;
    }
    return alignment.m_nVertical == TOP      ? height
           : alignment.m_nVertical == BOTTOM ? -DEPTH_BELOW * height
                                             : 0.0;
}

}  // namespace

double EstimatedWidth(const std::string& text) {
    return LETTER_WIDTH * static_cast<double>(CharacterCount(text));
}

SDrawnText PlacedText(const std::string& text, double height, const STextAlignment& alignment) {
    const bool bBackwards = (alignment.m_nFlags & BACKWARDS) != 0;
    const bool bUpsideDown = (alignment.m_nFlags & UPSIDE_DOWN) != 0;
    SDrawnText placed{text, alignment.m_At, height, alignment.m_Degrees, false, {}, 0};
    // What is upside down is mirrored at its base line: turned by half, and mirrored at its other axis.
    placed.m_Degrees += bUpsideDown ? 180.0 : 0.0;
    placed.m_bMirrored = bBackwards != bUpsideDown;
    const bool bByPoint = alignment.m_nHorizontal == BETWEEN_POINTS || alignment.m_nHorizontal == FIT ||
                          (alignment.m_nHorizontal == LEFT && alignment.m_nVertical == BASE_LINE);
    if (alignment.m_Aligned && !bByPoint) {
        const double width = height * alignment.m_WidthFactor * EstimatedWidth(text);
        const double before = (bBackwards ? -1.0 : 1.0) * ShareBefore(alignment.m_nHorizontal) * width;
        const double below = (bUpsideDown ? -1.0 : 1.0) * HeightBelow(alignment, height);
        placed.m_At = Moved(*alignment.m_Aligned, alignment.m_Degrees, -before, -below);
    }
    return placed;
}

std::vector<SDrawnText> PlacedLines(const std::vector<std::string>& lines, const SParagraph& paragraph) {
    const double height = paragraph.m_Height;
    const double step = LINE_DISTANCE * height * paragraph.m_Spacing;
    const int nPlace = std::clamp(paragraph.m_nAttachment, 1, 9) - 1;
    const double whole = height + step * static_cast<double>(lines.size() - 1);
    double up = whole * (nPlace / 3) / 2.0 - height;
    std::vector<SDrawnText> placed;
    for (const std::string& line : lines) {
        const double before = height * EstimatedWidth(line) * (nPlace % 3) / 2.0;
        const SPoint at = Moved(paragraph.m_At, paragraph.m_Degrees, -before, up);
        placed.push_back({line, at, height, paragraph.m_Degrees, false, {}, 0});
        up -= step;
    }
    return placed;
}

}  // namespace nestrix
