#pragma once

#include <FTGL/ftgl.h>

#include <string>

namespace nestrix {

/// Text on the canvases. A font whose file is missing or broken crashes at almost every call; these cost the
/// text and nothing else.

/// The one font file, found in the folder that the program is started in.
inline constexpr char FONT_FILE[] = "arial.ttf";

/// Sets the face size in pixels.
void SetFaceSize(FTFont& font, float fPixels);

/// Draws the text with its baseline's left end at (fX, fY) in the view's units, in the current colour. A
/// position outside the view hides the whole text.
void DrawCanvasText(FTFont& font, float fX, float fY, const std::string& text);

/// The number with so many decimals and a decimal point, whatever the process's locale.
[[nodiscard]] std::string NumberText(float fValue, int nDecimals);

}  // namespace nestrix
