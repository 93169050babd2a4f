#pragma once

#include "formats/svg/CSvgElement.h"

namespace nestrix {

/// The height of a capital letter, as a share of the font's size: that of the common faces without serifs.
inline constexpr double CAPITAL_HEIGHT = 0.7;

/// The width of a letter, on the average over texts and faces.
inline constexpr double LETTER_WIDTH = 0.56;

/// Takes the font's size and the text's anchor, where the element tells them, into what is inside it.
void TakeFont(pugi::xml_node element, SSvgContext& context);

/// The lines of a "text" element, in the coordinates of the drawing: one for each part with a place of its
/// own. Where a text is centred or ends at its place, its width is estimated.
[[nodiscard]] std::vector<SDrawnText> TextsOf(const CSvgElement& element, const CSvgFile& file);

}  // namespace nestrix
