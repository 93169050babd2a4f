#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "drawing/SMap.h"

namespace nestrix {

/// A length as an attribute tells it.
struct SSvgLength {
    enum class EKind {
        USER,        ///< none, or pixels, which are the same
        MILLIMETRE,  ///< any physical unit: mm, cm, in, pt, pc; the value is in millimetres
        PERCENT,
        EM,
        EX
    };

    double m_Value = 0.0;
    EKind m_eKind = EKind::USER;
};

/// What a "viewBox" attribute tells.
struct SSvgBox {
    double m_X = 0.0;
    double m_Y = 0.0;
    double m_Width = 0.0;
    double m_Height = 0.0;
};

/// What a "preserveAspectRatio" attribute tells: how a box comes to lie in a viewport of another shape.
struct SSvgAspect {
    bool m_bStretched = false;  ///< it fills the viewport in both directions
    bool m_bSlice = false;      ///< it covers the viewport instead of being shown whole
    double m_AlongX = 0.5;      ///< the share of the free room that is left of it; 0, 0.5 or 1
    double m_AlongY = 0.5;      ///< the same above it
};

// Each takes the whole text of an attribute, and gives nothing when it is not what it should be. White space
// around it does not matter.
[[nodiscard]] std::optional<SSvgLength> ParseLength(std::string_view text);
[[nodiscard]] std::optional<SSvgBox> ParseViewBox(std::string_view text);
[[nodiscard]] std::optional<SSvgAspect> ParseAspect(std::string_view text);
[[nodiscard]] std::optional<SMap> ParseTransform(std::string_view text);
[[nodiscard]] std::optional<std::vector<SPoint>> ParsePoints(std::string_view text);

}  // namespace nestrix
