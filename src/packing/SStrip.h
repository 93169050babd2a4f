#pragma once

namespace nestrix {

/// Where pieces are placed: x from 0 to the width, y from the floor at 0 upward without end.
struct SStrip {
    float m_fWidth = 400.0F;
    float m_fHeight = 600.0F;  ///< how much of it a picture shows; packings may reach higher

    friend bool operator==(const SStrip&, const SStrip&) = default;
};

}  // namespace nestrix
