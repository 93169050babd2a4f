#pragma once

#include "packing/SGrid.h"

namespace nestrix::certify {

__extension__ typedef __int128 CWide;
__extension__ typedef unsigned __int128 CUnsignedWide;

/// Points are examined whose coordinates are at most this. A difference of two doubled coordinates then takes
/// 62 bits beside its sign, a product of two such differences 124, and the difference of two products 125:
/// all fit into 128.
inline constexpr int64_t COORDINATE_MOST = int64_t{1} << 60;

/// The cross product of two vectors: positive when the second points to the left of the first.
inline CWide Cross(SGridPoint a, SGridPoint b) {
    return static_cast<CWide>(a.m_nX) * b.m_nY - static_cast<CWide>(a.m_nY) * b.m_nX;
}

inline CWide Dot(SGridPoint a, SGridPoint b) {
    return static_cast<CWide>(a.m_nX) * b.m_nX + static_cast<CWide>(a.m_nY) * b.m_nY;
}

/// On which side of the line through two points a third lies: 1 to the left, −1 to the right, 0 on it.
inline int SideOf(SGridPoint from, SGridPoint to, SGridPoint point) {
    const CWide turn = Cross(to - from, point - from);
    return (turn > 0 ? 1 : 0) - (turn < 0 ? 1 : 0);
}

}  // namespace nestrix::certify
