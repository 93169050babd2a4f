#include "certify/Meetings.h"

#include <algorithm>
#include <cstddef>

#include "certify/CEdgeSweep.h"
#include "certify/Wide.h"

namespace nestrix::certify {

namespace {

/// On which sides of each other's lines the ends of two edges lie.
struct SSides {
    int m_nFromOfSecond;
    int m_nToOfSecond;
    int m_nFromOfFirst;
    int m_nToOfFirst;

    SSides(const SBorderEdge& a, const SBorderEdge& b)
        : m_nFromOfSecond(SideOf(a.m_From, a.m_To, b.m_From)),
          m_nToOfSecond(SideOf(a.m_From, a.m_To, b.m_To)),
          m_nFromOfFirst(SideOf(b.m_From, b.m_To, a.m_From)),
          m_nToOfFirst(SideOf(b.m_From, b.m_To, a.m_To)) {}

    [[nodiscard]] bool Cross() const {
        return m_nFromOfSecond * m_nToOfSecond < 0 && m_nFromOfFirst * m_nToOfFirst < 0;
    }
};

/// Notes where two edges touch.
/// @return whether they cross.
bool NoteMeeting(const SBorderEdge& a, int nFirst, const SBorderEdge& b, int nSecond,
                 std::vector<STouch>& onFirst, std::vector<STouch>& onSecond) {
    const SSides sides(a, b);
    const auto note = [&](int nSide, SGridPoint end, const SBorderEdge& other) {
        if (nSide == 0 && Contains(BoxOf(other), end)) {
            onFirst.push_back({nFirst, end});
            onSecond.push_back({nSecond, end});
        }
    };
    note(sides.m_nFromOfSecond, b.m_From, a);
    note(sides.m_nToOfSecond, b.m_To, a);
    note(sides.m_nFromOfFirst, a.m_From, b);
    note(sides.m_nToOfFirst, a.m_To, b);
    return sides.Cross();
}

void AddMeeting(CEdgeSweep& sweep, const SBorder& border, const SGridBox& window) {
    for (size_t i = 0; i < border.m_Edges.size(); ++i) {
        if (Meet(BoxOf(border.m_Edges[i]), window)) {
            sweep.Add(border.m_Edges[i], static_cast<int>(i));
        }
    }
}

void PutInOrder(std::vector<STouch>& touches) {
    std::sort(touches.begin(), touches.end());
    touches.erase(std::unique(touches.begin(), touches.end()), touches.end());
}

/// Whether edge j follows edge i in their chain: next in the list, or first after last of a closed one.
bool Follows(const SBorder& border, int i, int j) {
    const SBorderEdge& a = border.m_Edges[static_cast<size_t>(i)];
    const SBorderEdge& b = border.m_Edges[static_cast<size_t>(j)];
    const auto isEndOfChain = [&](size_t nEdge, int nStep) {
        const size_t nNext = nEdge + static_cast<size_t>(nStep);
        return nNext >= border.m_Edges.size() ||
               border.m_Edges[nNext].m_nChain != border.m_Edges[nEdge].m_nChain;
    };
    return a.m_nChain == b.m_nChain && a.m_To == b.m_From &&
           (i + 1 == j ||
            (isEndOfChain(static_cast<size_t>(i), 1) && isEndOfChain(static_cast<size_t>(j), -1)));
}

/// The parts of one edge between its touches.
void AddParts(std::vector<SStretch>& stretches, const SBorderEdge& edge, std::vector<SGridPoint>& points) {
    points.push_back(edge.m_From);
    points.push_back(edge.m_To);
    std::sort(points.begin(), points.end());
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        if (points[i] != points[i + 1]) {
            stretches.push_back({points[i] + points[i + 1], edge.m_To - edge.m_From});
        }
    }
    points.clear();
}

}  // namespace

bool Cross(const SBorderEdge& a, const SBorderEdge& b) {
    return SSides(a, b).Cross();
}

SMeetings FindMeetings(const SBorder& first, const SBorder& second) {
    SMeetings meetings;
    CEdgeSweep ofFirst;
    CEdgeSweep ofSecond;
    AddMeeting(ofFirst, first, second.m_Box);
    AddMeeting(ofSecond, second, first.m_Box);
    meetings.m_bCross = ofFirst.VisitPairs(ofSecond, [&](int i, int j) {
        return NoteMeeting(first.m_Edges[static_cast<size_t>(i)], i, second.m_Edges[static_cast<size_t>(j)],
                           j, meetings.m_First, meetings.m_Second);
    });
    PutInOrder(meetings.m_First);
    PutInOrder(meetings.m_Second);
    return meetings;
}

SMeetings FindOwnMeetings(const SBorder& border) {
    SMeetings meetings;
    CEdgeSweep sweep;
    AddMeeting(sweep, border, border.m_Box);
    meetings.m_bCross = sweep.VisitPairs([&](int i, int j) {
        return !Follows(border, i, j) && !Follows(border, j, i) &&
               NoteMeeting(border.m_Edges[static_cast<size_t>(i)], i, border.m_Edges[static_cast<size_t>(j)],
                           j, meetings.m_First, meetings.m_First);
    });
    PutInOrder(meetings.m_First);
    return meetings;
}

std::vector<SStretch> StretchesBetween(const SBorder& border, const std::vector<STouch>& touches) {
    std::vector<SStretch> stretches;
    std::vector<SGridPoint> points;
    auto touch = touches.begin();
    bool bTouched = false;  // whether something is met along the present chain
    for (size_t i = 0; i < border.m_Edges.size(); ++i) {
        const SBorderEdge& edge = border.m_Edges[i];
        for (; touch != touches.end() && touch->m_nEdge == static_cast<int>(i); ++touch) {
            points.push_back(touch->m_At);
        }
        if (!points.empty()) {
            bTouched = true;
            AddParts(stretches, edge, points);
        }
        if (i + 1 == border.m_Edges.size() || border.m_Edges[i + 1].m_nChain != edge.m_nChain) {
            if (!bTouched) {
                AddParts(stretches, edge, points);
            }
            bTouched = false;
        }
    }
    return stretches;
}

}  // namespace nestrix::certify
