#include "formats/svg/CSvgElement.h"

namespace nestrix {

std::optional<double> CSvgElement::FindLength(char const* pName, EDirection eDirection) const {
    const std::string_view text = Text(pName);
    if (text.empty() || text == "auto") {
        return std::nullopt;
    }
    const std::optional<SSvgLength> length = ParseLength(text);
    if (!length) {
        Fault(std::string(pName) + " is no length: " + Quoted(text));
        return std::nullopt;
    }
    return UserUnits(*length, eDirection, m_Context);
}

}  // namespace nestrix
