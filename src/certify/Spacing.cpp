#include "certify/Spacing.h"

#include <boost/multiprecision/cpp_int.hpp>
#include <cstddef>

#include "certify/CEdgeSweep.h"
#include "certify/Wide.h"

namespace nestrix::certify {

namespace {

/// Whether |turn| < distance · length, given the squared length, which is more than 0: the foot of the height
/// on an edge lies between its ends, and the height is turn / length.
bool IsLower(CWide nTurn, int64_t nDistance, CWide nSquaredLength) {
    // Each of the three conversions rounds once, by at most half a unit in the last place, ε/2: for the turn
    // that counts twice. The products add one rounding on the left and two on the right, so that the two
    // sides are off by less than 3.5 · ε/2 each: more than 4 ε apart, they are in order.
    constexpr double SURELY = 1.0 + 4 * 0x1p-52;
    const double turn = static_cast<double>(nTurn);
    const double distance = static_cast<double>(nDistance);
    const double left = turn * turn;
    const double right = distance * distance * static_cast<double>(nSquaredLength);
    if (left > right * SURELY || right > left * SURELY) {
        return left < right;
    }
    using boost::multiprecision::int256_t;
    const int256_t wideTurn(nTurn);
    return wideTurn * wideTurn < int256_t(nDistance) * nDistance * int256_t(nSquaredLength);
}

bool IsNearer(SGridPoint point, const SBorderEdge& edge, int64_t nDistance) {
    const SGridPoint along = edge.m_To - edge.m_From;
    const SGridPoint toPoint = point - edge.m_From;
    const CWide nFoot = Dot(along, toPoint);
    const CWide nSquaredLength = Dot(along, along);
    if (nFoot > 0 && nFoot < nSquaredLength) {
        return IsLower(Cross(along, toPoint), nDistance, nSquaredLength);
    }
    const SGridPoint toEnd = nFoot <= 0 ? toPoint : point - edge.m_To;
    return Dot(toEnd, toEnd) < static_cast<CWide>(nDistance) * nDistance;
}

void AddNear(CEdgeSweep& sweep, const SBorder& border, const SGridBox& window, int64_t nReach) {
    for (size_t i = 0; i < border.m_Edges.size(); ++i) {
        if (Meet(BoxOf(border.m_Edges[i]), window)) {
            sweep.Add(border.m_Edges[i], static_cast<int>(i), nReach);
        }
    }
}

}  // namespace

bool AreNearer(const SBorder& first, const SBorder& second, int64_t nDistance) {
    if (first.m_Box.IsEmpty() || second.m_Box.IsEmpty() ||
        !Meet(Grown(first.m_Box, nDistance), second.m_Box)) {
        return false;
    }
    CEdgeSweep ofFirst;
    CEdgeSweep ofSecond;
    AddNear(ofFirst, first, Grown(second.m_Box, nDistance), nDistance);
    AddNear(ofSecond, second, Grown(first.m_Box, nDistance), 0);
    return ofFirst.VisitPairs(ofSecond, [&](int i, int j) {
        const SBorderEdge& a = first.m_Edges[static_cast<size_t>(i)];
        const SBorderEdge& b = second.m_Edges[static_cast<size_t>(j)];
        return IsNearer(a.m_From, b, nDistance) || IsNearer(a.m_To, b, nDistance) ||
               IsNearer(b.m_From, a, nDistance) || IsNearer(b.m_To, a, nDistance);
    });
}

}  // namespace nestrix::certify
