#include "display/CanvasText.h"

#include <GL/gl.h>

#include <array>
#include <cmath>
#include <cstdio>

#include "base/CNumericLocale.h"

namespace nestrix {

namespace {

/// Sizes count in points of 1/72 inch; at this resolution a point is a pixel.
constexpr unsigned int DOTS_PER_INCH = 72;

}  // namespace

void SetFaceSize(FTFont& font, float fPixels) {
    if (font.Error() == 0) {
        font.FaceSize(static_cast<unsigned int>(std::lround(fPixels)), DOTS_PER_INCH);
    }
}

void DrawCanvasText(FTFont& font, float fX, float fY, const std::string& text) {
    if (font.Error() == 0) {
        glRasterPos2f(fX, fY);
        font.Render(text.c_str());
    }
}

std::string NumberText(float fValue, int nDecimals) {
    // A float has at most 39 digits before the point.
    std::array<char, 64> buffer;
    const CNumericLocale numericLocale;
    std::snprintf(buffer.data(), buffer.size(), "%.*f", nDecimals, static_cast<double>(fValue));
    return buffer.data();
}

}  // namespace nestrix
