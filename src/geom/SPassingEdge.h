#pragma once

#include <optional>

#include "geom/COutlineSide.h"

namespace nestrix {

/// An edge that is not vertical, laid out for computing its heights between its ends.
struct SPassingEdge {
    double m_Slope;
    float m_fStartX;
    float m_fStartHeight;
    float m_fLowX;   ///< the edge passes the places above this
    float m_fHighX;  ///< and below this
    float m_fNoise;  ///< how far HeightAt may be from the real line through the start: see LineHeightMargin
    int m_nEdge;     ///< index in the outline

    /// Nothing for a vertical edge, or one that hides nothing between its ends since a coordinate is not
    /// finite.
    [[nodiscard]] static std::optional<SPassingEdge> Make(const COutlineSide& outline, int nEdge);

    /// The height at x: the same bit for bit as in the hit tests, but for the sign.
    [[nodiscard]] double HeightAt(float x) const {
        return static_cast<double>(m_fStartHeight) +
               m_Slope * (static_cast<double>(x) - static_cast<double>(m_fStartX));
    }
};

}  // namespace nestrix
