#include "tests/reference/CReferenceOverlap.h"

#include <algorithm>
#include <cmath>
#include <compare>
#include <utility>

#include "certify/Certify.h"

namespace nestrix::reference {

namespace {

using CSide = std::pair<SGridPoint, SGridPoint>;

std::vector<CSide> SidesOf(const SGridShape& shape) {
    std::vector<CSide> sides;
    const auto append = [&sides](const CGridRing& ring) {
        for (size_t i = 0; i < ring.size(); ++i) {
            sides.emplace_back(ring[i], ring[(i + 1) % ring.size()]);
        }
    };
    append(shape.m_Outline);
    std::for_each(shape.m_Holes.begin(), shape.m_Holes.end(), append);
    return sides;
}

SGridShape Magnified(SGridShape shape, int64_t nFactor, SGridPoint by) {
    const auto change = [&](CGridRing& ring) {
        for (SGridPoint& point : ring) {
            point = SGridPoint{point.m_nX * nFactor, point.m_nY * nFactor} + by;
        }
    };
    change(shape.m_Outline);
    std::for_each(shape.m_Holes.begin(), shape.m_Holes.end(), change);
    return shape;
}

int64_t CrossOf(SGridPoint a, SGridPoint b) {
    return a.m_nX * b.m_nY - a.m_nY * b.m_nX;
}

double DistanceOf(const SExactPlace& a, const SExactPlace& b) {
    const double one = static_cast<double>(a.m_nDenominator);
    const double other = static_cast<double>(b.m_nDenominator);
    return std::hypot(static_cast<double>(a.m_nX) / one - static_cast<double>(b.m_nX) / other,
                      static_cast<double>(a.m_nY) / one - static_cast<double>(b.m_nY) / other);
}

}  // namespace

CReferenceOverlap::CReferenceOverlap(SGridShape stays, SGridShape moves)
    : m_Stays(std::move(stays)), m_Moves(std::move(moves)) {
    for (const auto& [from, to] : SidesOf(m_Stays)) {
        for (const CSide& own : SidesOf(m_Moves)) {
            m_Lines.push_back({from - own.first, to - own.first});
            m_Lines.push_back({from - own.first, from - own.second});
        }
    }
    for (size_t i = 0; i < m_Lines.size(); ++i) {
        m_Meetings.push_back({{m_Lines[i].m_From.m_nX, m_Lines[i].m_From.m_nY, 1}, {}});
        m_Meetings.push_back({{m_Lines[i].m_To.m_nX, m_Lines[i].m_To.m_nY, 1}, {}});
        for (size_t k = i + 1; k < m_Lines.size(); ++k) {
            AppendMeeting(m_Lines[i], m_Lines[k]);
        }
    }
}

/// Those of parallel lines are ends of lines.
void CReferenceOverlap::AppendMeeting(const SLine& a, const SLine& b) {
    const SGridPoint u = a.m_To - a.m_From;
    const SGridPoint v = b.m_To - b.m_From;
    int64_t nTurn = CrossOf(u, v);
    if (nTurn == 0) {
        return;
    }
    int64_t nAlongA = CrossOf(b.m_From - a.m_From, v);
    int64_t nAlongB = CrossOf(b.m_From - a.m_From, u);
    if (nTurn < 0) {
        nTurn = -nTurn;
        nAlongA = -nAlongA;
        nAlongB = -nAlongB;
    }
    if (nAlongA >= 0 && nAlongA <= nTurn && nAlongB >= 0 && nAlongB <= nTurn) {
        m_Meetings.push_back(
            {{a.m_From.m_nX * nTurn + u.m_nX * nAlongA, a.m_From.m_nY * nTurn + u.m_nY * nAlongA, nTurn},
             {}});
    }
}

bool CReferenceOverlap::OverlapsAt(const SExactPlace& at) const {
    return DoInsidesOverlap(Magnified(m_Stays, at.m_nDenominator, {}),
                            Magnified(m_Moves, at.m_nDenominator, {at.m_nX, at.m_nY}));
}

double CReferenceOverlap::NearestFoot(const SExactPlace& at, double nearerThan) const {
    double nearest = nearerThan;
    for (const SLine& line : m_Lines) {
        const SGridPoint u = line.m_To - line.m_From;
        const int64_t nSquare = u.m_nX * u.m_nX + u.m_nY * u.m_nY;
        const int64_t nAlong = (at.m_nX - line.m_From.m_nX * at.m_nDenominator) * u.m_nX +
                               (at.m_nY - line.m_From.m_nY * at.m_nDenominator) * u.m_nY;
        if (nSquare == 0 || nAlong < 0 || nAlong > nSquare * at.m_nDenominator) {
            continue;
        }
        const int64_t nWhole = nSquare * at.m_nDenominator;
        const SExactPlace foot{line.m_From.m_nX * nWhole + u.m_nX * nAlong,
                               line.m_From.m_nY * nWhole + u.m_nY * nAlong, nWhole};
        const double distance = DistanceOf(at, foot);
        if (distance < nearest && !OverlapsAt(foot)) {
            nearest = distance;
        }
    }
    return nearest;
}

double CReferenceOverlap::DepthAt(const SExactPlace& at) {
    if (!OverlapsAt(at)) {
        return 0.0;
    }
    std::vector<std::pair<double, SMeeting*>> byDistance;
    for (SMeeting& meeting : m_Meetings) {
        byDistance.emplace_back(DistanceOf(at, meeting.m_At), &meeting);
    }
    std::sort(byDistance.begin(), byDistance.end());
    double nearest = HUGE_VAL;
    for (const auto& [distance, pMeeting] : byDistance) {
        if (!pMeeting->m_Overlaps) {
            pMeeting->m_Overlaps = OverlapsAt(pMeeting->m_At);
        }
        if (!*pMeeting->m_Overlaps) {
            nearest = distance;
            break;
        }
    }
    return NearestFoot(at, nearest);
}

}  // namespace nestrix::reference
