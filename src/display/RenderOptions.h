#pragma once

namespace nestrix {

/// The overlays of the packing view, as indices of g_PolyOptions.
enum ERenderOption {
    RENDER_REFERENCE,
    RENDER_BOUNDING_BOX,
    RENDER_FRONT_LINES,
    RENDER_BACK_LINES,
    RENDER_FRONT_POINTS,
    RENDER_BACK_POINTS,
    RENDER_SEQ_NUMBER,
    RENDER_OPTION_COUNT
};

}  // namespace nestrix

/// Which overlays are drawn, for every polygon of every packing. All off when the program starts; nothing
/// but the render menu changes them.
extern bool g_PolyOptions[nestrix::RENDER_OPTION_COUNT];
