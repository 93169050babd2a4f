#include "drawing/Doubles.h"

#include <algorithm>

#include "drawing/CCurve.h"
#include "drawing/CPointGrid.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// A line as its corners, with a point of the stretch between every two: what tells it from others.
struct SOutlined {
    std::vector<SPoint> m_Points;
    bool m_bClosed = false;
    SPlaneBox m_Box;
};

SPoint MiddleOf(SPoint start, const CStretch& stretch) {
    if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
        return PointAt(*pArc, pArc->m_From + pArc->m_Sweep / 2.0);
    }
    if (const auto* pCurve = std::get_if<SCurveTo>(&stretch)) {
        return CCurve(start, *pCurve).At(0.5);
    }
    return (start + EndOf(stretch)) * 0.5;
}

SOutlined Outlined(const SPath& path, double distance) {
    SOutlined line;
    line.m_bClosed = path.m_bClosed;
    line.m_Points.push_back(path.m_Start);
    for (const CStretch& stretch : path.m_Stretches) {
        const SPoint middle = MiddleOf(line.m_Points.back(), stretch);
        line.m_Points.insert(line.m_Points.end(), {middle, EndOf(stretch)});
    }
    if (path.m_bClosed && line.m_Points.size() > 1) {
        // Closed or not by a straight line of its own, it comes to the same.
        if (Length(line.m_Points.back() - path.m_Start) <= distance) {
            line.m_Points.pop_back();
        } else {
            line.m_Points.push_back((line.m_Points.back() + path.m_Start) * 0.5);
        }
    }
    for (const SPoint point : line.m_Points) {
        line.m_Box.Include(point);
    }
    return line;
}

class CSameness {
public:
    explicit CSameness(double distance) : m_Distance(distance) {}

    [[nodiscard]] bool AreSame(const SOutlined& a, const SOutlined& b) const {
        if (a.m_Points.size() != b.m_Points.size() || a.m_bClosed != b.m_bClosed ||
            !AreSame(a.m_Box.m_Low, b.m_Box.m_Low) || !AreSame(a.m_Box.m_High, b.m_Box.m_High)) {
            return false;
        }
        const size_t nLast = b.m_Points.size() - 1;
        if (!a.m_bClosed) {
            return AreSameFrom(a, b, 0, true) || AreSameFrom(a, b, nLast, false);
        }
        // Corners are at even places. A few corners at one place are all that a sensible line has.
        int nTried = 0;
        for (size_t i = 0; i <= nLast && nTried < TRIED_MOST; i += 2) {
            if (AreSame(a.m_Points[0], b.m_Points[i])) {
                ++nTried;
                if (AreSameFrom(a, b, i, true) || AreSameFrom(a, b, i, false)) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    static constexpr int TRIED_MOST = 8;

    [[nodiscard]] bool AreSame(SPoint a, SPoint b) const { return Length(a - b) <= m_Distance; }

    [[nodiscard]] bool AreSameFrom(const SOutlined& a, const SOutlined& b, size_t nStart, bool bOn) const {
        const size_t nPoints = a.m_Points.size();
        for (size_t i = 0; i < nPoints; ++i) {
            if (!AreSame(a.m_Points[i], b.m_Points[(nStart + (bOn ? i : nPoints - i)) % nPoints])) {
                return false;
            }
        }
        return true;
    }

    double m_Distance;
};

/// Nearly the same for nearly the same boxes, and far apart for most others.
SPoint KeyOf(const SPlaneBox& box) {
    constexpr double IRRATIONAL = 0.6180339887498949;
    return box.m_Low * IRRATIONAL + box.m_High;
}

}  // namespace

std::vector<bool> FindDoubles(std::span<const SPath> lines, double distance) {
    std::vector<SOutlined> outlined;
    std::vector<SPoint> keys;
    for (const SPath& line : lines) {
        outlined.push_back(Outlined(line, distance));
        keys.push_back(KeyOf(outlined.back().m_Box));
    }
    SPlaneBox extent;
    for (const SPoint key : keys) {
        extent.Include(key);
    }
    std::vector<bool> doubles(lines.size());
    if (lines.empty()) {
        return doubles;
    }
    const double least = 1e-12 * Length(extent.m_High - extent.m_Low);
    const double cell = std::max({2.0 * distance, least, 1e-300});
    const CPointGrid grid(keys, cell);
    const CSameness sameness(distance);
    for (size_t i = 0; i < lines.size(); ++i) {
        grid.VisitNear(keys[i], [&](size_t k) {
            if (k < i && !doubles[i] && !doubles[k]) {
                doubles[i] = sameness.AreSame(outlined[i], outlined[k]);
            }
        });
    }
    return doubles;
}

}  // namespace nestrix
