#pragma once

#include <pugixml.hpp>

#include "drawing/SMap.h"
#include "formats/svg/SvgValues.h"

namespace nestrix {

/// What an element has from those around it.
struct SSvgContext {
    SMap m_Map;            ///< from its coordinates, y down, into those of the drawing, y up
    double m_Width = 0.0;  ///< of the nearest viewport, in user units: what percentages are of
    double m_Height = 0.0;
    double m_FontSize = 16.0;  ///< user units
    double m_Anchor = 0.0;     ///< the share of a text that is to the left of its place; 0, 0.5 or 1
    bool m_bVisible = true;
    pugi::xml_attribute m_Label;  ///< the nearest; none for no label
    pugi::xml_attribute m_Id;     ///< the nearest; none for no id
    pugi::xml_attribute m_Layer;  ///< what names the nearest layer
};

/// What a length is a percentage of.
enum class EDirection { ACROSS, DOWN, NEITHER };

/// A length in user units.
[[nodiscard]] double UserUnits(const SSvgLength& length, EDirection eDirection, const SSvgContext& context);

/// Millimetres in a user unit where nothing scales it.
inline constexpr double MILLIMETRES_IN_A_PIXEL = 25.4 / 96.0;

}  // namespace nestrix
