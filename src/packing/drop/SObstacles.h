#pragma once

#include <limits>
#include <span>

#include "packing/drop/SDrop.h"

namespace nestrix {

/// What a fall ends on.
struct SLanding {
    /// The number of the floor: it counts as the latest of all obstacles, since it is asked first.
    static constexpr int FLOOR = std::numeric_limits<int>::max();

    float m_fFall;
    int m_nObstacle;
};

/// Those placed polygons that something on its way down may touch.
struct SObstacles {
    const SBox& m_Falling;
    std::span<const SDrop> m_Placed;
    int m_nAfter;  ///< only younger ones count

    [[nodiscard]] bool Contain(int nDrop) const {
        return nDrop > m_nAfter && CanTouch(m_Falling, m_Placed[static_cast<size_t>(nDrop)].m_Box);
    }
};

}  // namespace nestrix
