#include "display/CanvasText.h"

#include <GL/gl.h>

#include <array>
#include <cmath>
#include <cstdio>

#include "base/CNumericLocale.h"

namespace nestrix {

void SetFaceSize(FTFont& font, float fPixels) {
    if (font.Error() == 0) {
        // In points, of which the library takes 72 to an inch unless told otherwise, and so for pixels.
        font.FaceSize(static_cast<unsigned int>(std::lround(fPixels)));
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
