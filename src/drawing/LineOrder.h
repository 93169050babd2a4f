#pragma once

#include <cstddef>
#include <span>
#include <vector>

#include "packing/SPiece.h"

namespace nestrix {

/// A line that leaves a place which others leave, too.
struct SLeavingLine {
    std::span<const SPoint> m_Points;  ///< at least one
    bool m_bBack = false;              ///< it is walked from its last point to its first
    SPoint m_Target;                   ///< where it ends, for lines that lie over each other
};

/// The lines' indices in the order counter-clockwise round their common place, beginning at the left. Lines
/// that leave along a common tangent are told apart by where they go on.
[[nodiscard]] std::vector<size_t> CounterClockwiseOrder(std::span<const SLeavingLine> lines);

}  // namespace nestrix
