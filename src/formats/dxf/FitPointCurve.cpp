#include "formats/dxf/FitPointCurve.h"

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// The system is solved row by row, over and over. Each row's own value weighs at least twice as much as its
/// neighbours together, so every sweep at least halves the error.
constexpr int SWEEPS = 60;

std::optional<SPoint> UnitOf(const std::optional<SPoint>& direction) {
    const double length = direction ? Length(*direction) : 0.0;
    return length > 0.0 ? std::optional(*direction * (1.0 / length)) : std::nullopt;
}

/// The velocities with which the curve passes its points.
class CVelocities {
public:
    CVelocities(const std::vector<SPoint>& points, const SFitPoints& fit)
        : m_bClosed(fit.m_bClosed), m_Velocities(points.size()) {
        for (size_t i = 0; i + 1 < points.size(); ++i) {
            const SPoint chord = points[i + 1] - points[i];
            m_Lengths.push_back(Length(chord));
            m_Means.push_back(chord * (1.0 / m_Lengths.back()));
        }
        for (int nSweep = 0; nSweep < SWEEPS; ++nSweep) {
            Sweep(UnitOf(fit.m_StartTangent), UnitOf(fit.m_EndTangent));
        }
    }

    [[nodiscard]] SPoint At(size_t nPoint) const { return m_Velocities[nPoint]; }
    [[nodiscard]] double ChordLength(size_t nChord) const { return m_Lengths[nChord]; }

private:
    void Sweep(const std::optional<SPoint>& start, const std::optional<SPoint>& end) {
        const size_t nLast = m_Velocities.size() - 1;
        m_Velocities[0] = m_bClosed ? Between(nLast - 1, 0, m_Velocities[nLast - 1], m_Velocities[1])
                          : start   ? *start
                                    : (m_Means[0] * 3.0 - m_Velocities[1]) * 0.5;
        for (size_t i = 1; i < nLast; ++i) {
            m_Velocities[i] = Between(i - 1, i, m_Velocities[i - 1], m_Velocities[i + 1]);
        }
        m_Velocities[nLast] = m_bClosed ? m_Velocities[0]
                              : end     ? *end
                                        : (m_Means[nLast - 1] * 3.0 - m_Velocities[nLast - 1]) * 0.5;
    }

    /// What makes the second derivatives of two chords the same where they meet.
    [[nodiscard]] SPoint Between(size_t nBefore, size_t nAfter, SPoint previous, SPoint next) const {
        const double before = m_Lengths[nBefore];
        const double after = m_Lengths[nAfter];
        const SPoint right = (m_Means[nBefore] * after + m_Means[nAfter] * before) * 3.0;
        return (right - previous * after - next * before) * (0.5 / (before + after));
    }

    bool m_bClosed;
    std::vector<double> m_Lengths;
    std::vector<SPoint> m_Means;  ///< the mean velocity along each chord
    std::vector<SPoint> m_Velocities;
};

std::vector<SPoint> Differing(const SFitPoints& fit) {
    std::vector<SPoint> points;
    for (const SPoint& point : fit.m_Points) {
        if (points.empty() || Length(point - points.back()) > 0.0) {
            points.push_back(point);
        }
    }
    if (fit.m_bClosed && points.size() > 1 && Length(points.front() - points.back()) > 0.0) {
        points.push_back(points.front());
    }
    return points;
}

}  // namespace

std::optional<SPath> FitPointPath(const SFitPoints& fit) {
    const std::vector<SPoint> points = Differing(fit);
    if (points.size() < 2) {
        return std::nullopt;
    }
    const CVelocities velocities(points, fit);
    SPath path{points[0], {}, points.front() == points.back()};
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        const double third = velocities.ChordLength(i) / 3.0;
        path.m_Stretches.emplace_back(SCurveTo{points[i] + velocities.At(i) * third,
                                               points[i + 1] - velocities.At(i + 1) * third, points[i + 1]});
    }
    return path;
}

}  // namespace nestrix
