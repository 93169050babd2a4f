#include "tests/reference/ReferenceGeometry.h"

#include <algorithm>

namespace nestrix::reference {
namespace {

bool SpansX(float x, const mgVector3& start, const mgVector3& end) {
    if (start.x > x && end.x > x) {
        return false;
    }
    if (start.x < x && end.x < x) {
        return false;
    }
    return true;
}

/// The height of a segment that is not vertical at a given x.
double HeightAt(float x, const mgVector3& start, const mgVector3& direction) {
    const double fSlope = static_cast<double>(direction.y) / static_cast<double>(direction.x);
    return static_cast<double>(start.y) + fSlope * (static_cast<double>(x) - static_cast<double>(start.x));
}

void Store(float* pTarget, double fValue) {
    if (pTarget != nullptr) {
        *pTarget = static_cast<float>(fValue);
    }
}

mgVector3 PositionOf(const CPolygon& polygon, int nPoint) {
    return polygon.m_Points.at(static_cast<size_t>(nPoint)).m_Position;
}

mgVector3 WorldPosition(const mgVector3& local, const CPolygon& polygon) {
    return {local.x + polygon.m_ReferencePoint.x, local.y + polygon.m_ReferencePoint.y, 0.0F};
}

void BuildConnectivity(CPolygon& polygon) {
    const int n = static_cast<int>(polygon.m_Points.size());
    for (int i = 0; i < n; ++i) {
        const int nEnd = (i + 1) % n;
        const mgVector3 a = PositionOf(polygon, i);
        const mgVector3 b = PositionOf(polygon, nEnd);
        CLine line;
        line.m_nStart = i;
        line.m_nEnd = nEnd;
        line.m_Direction = {b.x - a.x, b.y - a.y, b.z - a.z};
        polygon.m_Lines.push_back(line);
        polygon.m_Points.at(static_cast<size_t>(i)).m_nNextLine = i;
        polygon.m_Points.at(static_cast<size_t>(nEnd)).m_nPrevLine = i;
    }
}

void ProcessFrontAndBackLines(CPolygon& polygon) {
    const mgVector3 up = {0.0F, 1.0F, 0.0F};
    for (CLine& line : polygon.m_Lines) {
        const float fSide = up.y * line.m_Direction.x - up.x * line.m_Direction.y;
        if (fSide < 0.0F) {
            line.m_bFront = false;
            polygon.m_BackLines.push_back(line);
        } else {
            line.m_bFront = true;
            polygon.m_FrontLines.push_back(line);
        }
    }
}

float Rise(const CLine& line) {
    const mgVector3 up = {0.0F, 1.0F, 0.0F};
    const mgVector3& d = line.m_Direction;
    return up.x * d.x + up.y * d.y + up.z * d.z;
}

void ProcessFrontAndBackPoints(CPolygon& polygon) {
    for (CPoint& point : polygon.m_Points) {
        const CLine& a = polygon.m_Lines.at(static_cast<size_t>(point.m_nPrevLine));
        const CLine& b = polygon.m_Lines.at(static_cast<size_t>(point.m_nNextLine));
        if (a.m_bFront && b.m_bFront) {
            if (Rise(b) >= Rise(a)) {
                point.m_bFront = true;
                point.m_bBack = false;
                polygon.m_FrontPoints.push_back(point);
            }
        } else if (!a.m_bFront && !b.m_bFront) {
            if (Rise(b) <= Rise(a)) {
                point.m_bFront = false;
                point.m_bBack = true;
                polygon.m_BackPoints.push_back(point);
            }
        } else {
            point.m_bFront = true;
            point.m_bBack = true;
            polygon.m_FrontPoints.push_back(point);
            polygon.m_BackPoints.push_back(point);
        }
    }
}

using HitTest = bool (*)(const mgVector3&, const mgVector3&, const mgVector3&, const mgVector3&, float*);

/// Whether some edge that does not end at the point hides it in the direction of the test.
bool IsHidden(const CPolygon& polygon, const CPoint& point, HitTest test) {
    for (int i = 0; i < static_cast<int>(polygon.m_Lines.size()); ++i) {
        if (i == point.m_nPrevLine || i == point.m_nNextLine) {
            continue;
        }
        const CLine& line = polygon.m_Lines.at(static_cast<size_t>(i));
        if (test(point.m_Position, PositionOf(polygon, line.m_nStart), PositionOf(polygon, line.m_nEnd),
                 line.m_Direction, nullptr)) {
            return true;
        }
    }
    return false;
}

std::vector<CPoint> ExposedPoints(const CPolygon& polygon, const std::vector<CPoint>& points, HitTest test) {
    std::vector<CPoint> exposed;
    for (const CPoint& point : points) {
        if (!IsHidden(polygon, point, test)) {
            exposed.push_back(point);
        }
    }
    return exposed;
}

std::vector<CLine> ExposedLines(const CPolygon& polygon, const std::vector<CLine>& lines, HitTest test) {
    std::vector<CLine> exposed;
    for (const CLine& line : lines) {
        const CPoint& start = polygon.m_Points.at(static_cast<size_t>(line.m_nStart));
        const CPoint& end = polygon.m_Points.at(static_cast<size_t>(line.m_nEnd));
        if (!(IsHidden(polygon, start, test) && IsHidden(polygon, end, test))) {
            exposed.push_back(line);
        }
    }
    return exposed;
}

/// The smallest gap so far; the earlier of two equal ones.
struct SChoice {
    bool m_bFound = false;
    float m_fGap = 0.0F;
    mgVector3 m_Contact;

    void Offer(float fGap, const mgVector3& contact) {
        if (!m_bFound || fGap < m_fGap) {
            m_bFound = true;
            m_fGap = fGap;
            m_Contact = contact;
        }
    }
};

/// The moving polygon's lower vertices over the obstacle's upper edges.
void OfferDownwardContacts(const CPolygon& moving, const CPolygon& other, SChoice& choice) {
    for (const CPoint& point : moving.m_FrontPoints) {
        const mgVector3 p = WorldPosition(point.m_Position, moving);
        for (const CLine& line : other.m_BackLines) {
            const mgVector3 s = WorldPosition(PositionOf(other, line.m_nStart), other);
            const mgVector3 e = WorldPosition(PositionOf(other, line.m_nEnd), other);
            float h = 0.0F;
            if (DoesPointHitDownward(p, s, e, line.m_Direction, &h)) {
                choice.Offer(p.y - h, {p.x, h, 0.0F});
            }
        }
    }
}

/// The obstacle's upper vertices under the moving polygon's lower edges.
void OfferUpwardContacts(const CPolygon& moving, const CPolygon& other, SChoice& choice) {
    for (const CPoint& point : other.m_BackPoints) {
        const mgVector3 q = WorldPosition(point.m_Position, other);
        for (const CLine& line : moving.m_FrontLines) {
            const mgVector3 s = WorldPosition(PositionOf(moving, line.m_nStart), moving);
            const mgVector3 e = WorldPosition(PositionOf(moving, line.m_nEnd), moving);
            float h = 0.0F;
            if (DoesPointHitUpward(q, s, e, line.m_Direction, &h)) {
                choice.Offer(h - q.y, {q.x, q.y, 0.0F});
            }
        }
    }
}

}  // namespace

bool DoesPointHitDownward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                          const mgVector3& direction, float* pHitY) {
    if (!SpansX(point.x, start, end)) {
        return false;
    }
    if (direction.x == 0.0F) {
        const float fLow = std::min(start.y, end.y);
        const float fHigh = std::max(start.y, end.y);
        if (fLow > point.y) {
            return false;
        }
        Store(pHitY, std::min(fHigh, point.y));
        return true;
    }
    const double fHeight = HeightAt(point.x, start, direction);
    if (!(static_cast<double>(point.y) >= fHeight)) {
        return false;
    }
    Store(pHitY, fHeight);
    return true;
}

bool DoesPointHitUpward(const mgVector3& point, const mgVector3& start, const mgVector3& end,
                        const mgVector3& direction, float* pHitY) {
    if (!SpansX(point.x, start, end)) {
        return false;
    }
    if (direction.x == 0.0F) {
        const float fLow = std::min(start.y, end.y);
        const float fHigh = std::max(start.y, end.y);
        if (fHigh < point.y) {
            return false;
        }
        Store(pHitY, std::min(fLow, point.y));
        return true;
    }
    const double fHeight = HeightAt(point.x, start, direction);
    if (!(static_cast<double>(point.y) <= fHeight)) {
        return false;
    }
    Store(pHitY, fHeight);
    return true;
}

void Process(CPolygon& polygon) {
    BuildConnectivity(polygon);
    ProcessFrontAndBackLines(polygon);
    ProcessFrontAndBackPoints(polygon);
    polygon.m_FrontPoints = ExposedPoints(polygon, polygon.m_FrontPoints, DoesPointHitDownward);
    polygon.m_BackPoints = ExposedPoints(polygon, polygon.m_BackPoints, DoesPointHitUpward);
    polygon.m_FrontLines = ExposedLines(polygon, polygon.m_FrontLines, DoesPointHitDownward);
    polygon.m_BackLines = ExposedLines(polygon, polygon.m_BackLines, DoesPointHitUpward);
}

bool GetApproachDistanceFromTop(const CPolygon& moving, const CPolygon& other, float* pDistance,
                                float* pContactX, float* pContactY) {
    SChoice choice;
    OfferDownwardContacts(moving, other, choice);
    OfferUpwardContacts(moving, other, choice);
    if (choice.m_bFound && pContactX != nullptr) {
        *pContactX = choice.m_Contact.x;
    }
    if (choice.m_bFound && pContactY != nullptr) {
        *pContactY = choice.m_Contact.y;
    }
    if (pDistance != nullptr) {
        *pDistance = choice.m_fGap;
    }
    return choice.m_bFound;
}

}  // namespace nestrix::reference
