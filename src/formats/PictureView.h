#pragma once

#include <algorithm>
#include <span>

#include "packing/SFreePacking.h"
#include "packing/SPacking.h"

namespace nestrix {

/// The part of the plane that a packing and its strip take, in world coordinates.
struct SPictureView {
    double m_Left = 0.0;
    double m_Right = 0.0;
    double m_Bottom = 0.0;
    double m_Top = 0.0;
    /// How much texts and lines grow, so that a tall picture stays readable as a whole.
    double m_Scale = 1.0;

    /// The longer side.
    [[nodiscard]] double Extent() const { return std::max(m_Right - m_Left, m_Top - m_Bottom); }
};

/// Also encloses what sticks out of the strip: pieces wider than it, and vertices outside their boxes.
[[nodiscard]] SPictureView FindPictureView(std::span<const CPolygon> pieces, const SPacking& packing);

/// The strip from the floor to the packing's height: nothing sticks out of it. Texts and lines shrink with a
/// small or narrow strip.
[[nodiscard]] SPictureView FindPictureView(const SFreePacking& packing);

/// Whether every number of the packing is finite.
[[nodiscard]] bool IsFinite(std::span<const CPolygon> pieces, const SPacking& packing);

/// The distance between the marks of a scale along a picture of this size: 1, 2 or 5 times a power of ten,
/// and at most ten steps.
[[nodiscard]] double FindScaleStep(double extent);

}  // namespace nestrix
