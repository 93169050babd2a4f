#include "nest/SameLooks.h"

#include <algorithm>

namespace nestrix {

namespace {

/// Two turns of one piece look the same when no point differs by more, in units: what rounding does.
constexpr int64_t SAME_POINT = 2;

bool AreNear(SGridPoint a, SGridPoint b) {
    return std::abs(a.m_nX - b.m_nX) <= SAME_POINT && std::abs(a.m_nY - b.m_nY) <= SAME_POINT;
}

bool LookTheSame(const CGridRing& a, SGridPoint lowA, const CGridRing& b, SGridPoint lowB) {
    if (a.size() != b.size()) {
        return false;
    }
    for (size_t nShift = 0; nShift < a.size(); ++nShift) {
        size_t i = 0;
        while (i < a.size() && AreNear(a[i] - lowA, b[(i + nShift) % b.size()] - lowB)) {
            ++i;
        }
        if (i == a.size()) {
            return true;
        }
    }
    return a.empty();
}

}  // namespace

bool LookTheSame(const SVersion& a, const SVersion& b) {
    if (a.m_Shape.m_Holes.size() != b.m_Shape.m_Holes.size() ||
        !LookTheSame(a.m_Shape.m_Outline, a.m_Box.m_Low, b.m_Shape.m_Outline, b.m_Box.m_Low)) {
        return false;
    }
    return std::all_of(a.m_Shape.m_Holes.begin(), a.m_Shape.m_Holes.end(), [&](const CGridRing& hole) {
        return std::any_of(b.m_Shape.m_Holes.begin(), b.m_Shape.m_Holes.end(), [&](const CGridRing& other) {
            return LookTheSame(hole, a.m_Box.m_Low, other, b.m_Box.m_Low);
        });
    });
}

}  // namespace nestrix
