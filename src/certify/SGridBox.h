#pragma once

#include <algorithm>
#include <limits>

#include "packing/SGrid.h"

namespace nestrix::certify {

/// The upright rectangle around some points; none at first.
struct SGridBox {
    SGridPoint m_Low{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::max()};
    SGridPoint m_High{std::numeric_limits<int64_t>::min(), std::numeric_limits<int64_t>::min()};

    [[nodiscard]] bool IsEmpty() const { return m_Low.m_nX > m_High.m_nX; }

    void Include(SGridPoint point) {
        m_Low = {std::min(m_Low.m_nX, point.m_nX), std::min(m_Low.m_nY, point.m_nY)};
        m_High = {std::max(m_High.m_nX, point.m_nX), std::max(m_High.m_nY, point.m_nY)};
    }
};

/// The box with so much more on each side; of a box that is not empty.
inline SGridBox Grown(const SGridBox& box, int64_t nBy) {
    const SGridPoint by{nBy, nBy};
    return {box.m_Low - by, box.m_High + by};
}

/// Whether two boxes share a point.
inline bool Meet(const SGridBox& a, const SGridBox& b) {
    return a.m_Low.m_nX <= b.m_High.m_nX && b.m_Low.m_nX <= a.m_High.m_nX && a.m_Low.m_nY <= b.m_High.m_nY &&
           b.m_Low.m_nY <= a.m_High.m_nY;
}

/// Whether their insides do.
inline bool Overlap(const SGridBox& a, const SGridBox& b) {
    return a.m_Low.m_nX < b.m_High.m_nX && b.m_Low.m_nX < a.m_High.m_nX && a.m_Low.m_nY < b.m_High.m_nY &&
           b.m_Low.m_nY < a.m_High.m_nY;
}

inline bool Contains(const SGridBox& box, SGridPoint point) {
    return box.m_Low.m_nX <= point.m_nX && point.m_nX <= box.m_High.m_nX && box.m_Low.m_nY <= point.m_nY &&
           point.m_nY <= box.m_High.m_nY;
}

}  // namespace nestrix::certify
