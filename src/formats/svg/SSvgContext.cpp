#include "formats/svg/SSvgContext.h"

#include <cmath>

namespace nestrix {

namespace {

double WholeOf(EDirection eDirection, const SSvgContext& context) {
    switch (eDirection) {
        case EDirection::ACROSS:
            return context.m_Width;
        case EDirection::DOWN:
            return context.m_Height;
        default:
            return std::hypot(context.m_Width, context.m_Height) / std::sqrt(2.0);
    }
}

}  // namespace

double UserUnits(const SSvgLength& length, EDirection eDirection, const SSvgContext& context) {
    switch (length.m_eKind) {
        case SSvgLength::EKind::MILLIMETRE:
            return length.m_Value / MILLIMETRES_IN_A_PIXEL;
        case SSvgLength::EKind::PERCENT:
            return length.m_Value / 100.0 * WholeOf(eDirection, context);
        case SSvgLength::EKind::EM:
            return length.m_Value * context.m_FontSize;
        case SSvgLength::EKind::EX:
            return length.m_Value * context.m_FontSize / 2.0;
        default:
            return length.m_Value;
    }
}

}  // namespace nestrix
