#include "certify/Inside.h"

#include <algorithm>

#include "certify/Wide.h"

namespace nestrix::certify {

namespace {

/// Whether any of one border's stretches lies inside the other, or on it with the inside on the same side.
bool ReachesInto(const SBorder& border, const std::vector<STouch>& touches, const SBorder& other) {
    const std::vector<SStretch> stretches = StretchesBetween(border, touches);
    return std::any_of(stretches.begin(), stretches.end(), [&other](const SStretch& stretch) {
        const SWhere where = Locate(stretch, other);
        return where.m_nAlong > 0 || (where.m_nAgainst == 0 && where.m_nWinding > 0);
    });
}

}  // namespace

SWhere Locate(const SStretch& stretch, const SBorder& border) {
    // A ray to the east, from just above the middle, counts the edges that it meets. Those under the stretch
    // begin to its west, or below.
    SWhere where;
    const SGridPoint point = stretch.m_Doubled;
    for (const SBorderEdge& edge : border.m_Edges) {
        const SGridPoint from = edge.m_From + edge.m_From;
        const SGridPoint to = edge.m_To + edge.m_To;
        const auto [nLow, nHigh] = std::minmax(from.m_nY, to.m_nY);
        if (point.m_nY < nLow || point.m_nY > nHigh || std::max(from.m_nX, to.m_nX) < point.m_nX) {
            continue;
        }
        const int nSide = SideOf(from, to, point);
        if (nSide == 0 &&
            Contains({{std::min(from.m_nX, to.m_nX), nLow}, {std::max(from.m_nX, to.m_nX), nHigh}}, point)) {
            ++(Dot(to - from, stretch.m_Direction) > 0 ? where.m_nAlong : where.m_nAgainst);
        } else if (nSide > 0 && from.m_nY <= point.m_nY && point.m_nY < to.m_nY) {
            ++where.m_nWinding;
        } else if (nSide < 0 && to.m_nY <= point.m_nY && point.m_nY < from.m_nY) {
            --where.m_nWinding;
        }
    }
    return where;
}

bool Overlap(const SBorder& first, const SBorder& second) {
    if (!Overlap(first.m_Box, second.m_Box)) {
        return false;
    }
    const SMeetings meetings = FindMeetings(first, second);
    return meetings.m_bCross || ReachesInto(first, meetings.m_First, second) ||
           ReachesInto(second, meetings.m_Second, first);
}

}  // namespace nestrix::certify
