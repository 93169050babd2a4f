#pragma once

#include <algorithm>
#include <optional>

#include "drawing/CCurve.h"

namespace nestrix {

/// How edges follow a curve.
enum class EEdges { CHORDS, TANGENTS };

/// A part of a curve, by its parameters.
struct SRange {
    double m_From;
    double m_To;

    [[nodiscard]] double Clamped(double t) const {
        return std::clamp(t, std::min(m_From, m_To), std::max(m_From, m_To));
    }
    [[nodiscard]] double Middle() const { return (m_From + m_To) / 2.0; }
};

/// What stands for a part of a curve.
struct SFlatPart {
    bool m_bTurnsTooFar = false;     ///< to be flattened as one
    std::optional<SPoint> m_Corner;  ///< of two tangents; absent: a straight line to the part's end
};

/// @param part the curve turns one way in it.
[[nodiscard]] SFlatPart Flat(const CCurve& curve, SRange part, EEdges eEdges);

/// How far what stands for the part is from it, or a little more; infinite if it turns too far.
[[nodiscard]] double ErrorOf(const CCurve& curve, SRange part, EEdges eEdges);

}  // namespace nestrix
