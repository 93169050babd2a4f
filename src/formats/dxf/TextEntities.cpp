#include "formats/dxf/TextEntities.h"

#include <cmath>

#include "formats/dxf/DxfText.h"
#include "formats/dxf/TextPlaces.h"

namespace nestrix {

namespace {

constexpr double DEGREES_IN_A_RADIAN = 57.29577951308232;

}  // namespace

SDrawnText TextOf(const DL_TextData& data) {
    STextAlignment alignment;
    alignment.m_At = {data.ipx, data.ipy};
    if (std::isfinite(data.apx) && std::isfinite(data.apy)) {
        alignment.m_Aligned = SPoint{data.apx, data.apy};
    }
    alignment.m_nHorizontal = data.hJustification;
    alignment.m_nVertical = data.vJustification;
    alignment.m_nFlags = data.textGenerationFlags;
    alignment.m_WidthFactor = data.xScaleFactor;
    alignment.m_Degrees = data.angle * DEGREES_IN_A_RADIAN;
    return PlacedText(DecodedText(data.text), data.height, alignment);
}

std::vector<SDrawnText> LinesOf(const DL_MTextData& data, const std::string& before) {
    return PlacedLines(DecodedLines(before + data.text), {{data.ipx, data.ipy},
                                                          data.height,
                                                          data.angle * DEGREES_IN_A_RADIAN,
                                                          data.attachmentPoint,
                                                          data.lineSpacingFactor});
}

}  // namespace nestrix
