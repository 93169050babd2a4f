#include "formats/dxf/DxfSplines.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Each halving brings a curve sixteen times nearer: after so many, only what is no smooth curve is left.
constexpr int MOST_HALVINGS = 6;

/// What is this near, in extents of the curve, is the same but for rounding.
constexpr double SAME_POINT = 1e-9;

/// A conic whose middle weight is this near 1 is a parabola: its centre is too far away to be of any use.
constexpr double SAME_WEIGHT = 1e-9;

/// A point of the plane with a weight, multiplied by it: so curves with weights are as linear as others.
struct SControl {
    double m_X = 0.0;
    double m_Y = 0.0;
    double m_Weight = 1.0;

    [[nodiscard]] SPoint Point() const { return {m_X / m_Weight, m_Y / m_Weight}; }
};

SControl Between(const SControl& a, const SControl& b, double share) {
    return {(1.0 - share) * a.m_X + share * b.m_X, (1.0 - share) * a.m_Y + share * b.m_Y,
            (1.0 - share) * a.m_Weight + share * b.m_Weight};
}

SPoint Between(SPoint a, SPoint b, double share) {
    return a + (b - a) * share;
}

double Distance(SPoint a, SPoint b) {
    return Length(b - a);
}

using CBezier = std::vector<SControl>;

/// The two halves of a curve, by de Casteljau.
std::pair<CBezier, CBezier> Halves(CBezier bezier) {
    CBezier first;
    CBezier second = bezier;
    for (size_t n = bezier.size(); n > 0; --n) {
        first.push_back(bezier[0]);
        second[n - 1] = bezier[n - 1];
        for (size_t i = 0; i + 1 < n; ++i) {
            bezier[i] = Between(bezier[i], bezier[i + 1], 0.5);
        }
    }
    return {first, second};
}

SPoint PointAt(CBezier bezier, double share) {
    for (size_t n = bezier.size(); n > 1; --n) {
        for (size_t i = 0; i + 1 < n; ++i) {
            bezier[i] = Between(bezier[i], bezier[i + 1], share);
        }
    }
    return bezier[0].Point();
}

SPoint PointAt(SPoint start, const SCurveTo& curve, double share) {
    return PointAt({{start.m_X, start.m_Y},
                    {curve.m_FirstControl.m_X, curve.m_FirstControl.m_Y},
                    {curve.m_SecondControl.m_X, curve.m_SecondControl.m_Y},
                    {curve.m_End.m_X, curve.m_End.m_Y}},
                   share);
}

/// The cubic that leaves both ends of the curve as fast as the curve does. Exact where the curve has no
/// weights and at most the third degree.
SCurveTo CubicFor(const CBezier& bezier) {
    const double third = static_cast<double>(bezier.size() - 1) / 3.0;
    const SControl& first = bezier.front();
    const SControl& last = bezier.back();
    const SControl& second = bezier[1];
    const SControl& beforeLast = bezier[bezier.size() - 2];
    return {Between(first.Point(), second.Point(), third * second.m_Weight / first.m_Weight),
            Between(last.Point(), beforeLast.Point(), third * beforeLast.m_Weight / last.m_Weight),
            last.Point()};
}

/// A quadratic curve with weights as an arc of an ellipse, if it is one.
///
/// With weights 1, w, 1 and w = cos h, it is what an affine map makes of the circle's arc from −h to h, whose
/// chord has its middle at w², and whose middle control point lies at 1 / w, both from the centre.
std::optional<SArcTo> FindConic(const CBezier& bezier) {
    if (bezier.size() != 3) {
        return std::nullopt;
    }
    const double weight = bezier[1].m_Weight / std::sqrt(bezier[0].m_Weight * bezier[2].m_Weight);
    if (!(weight < 1.0 - SAME_WEIGHT)) {
        return std::nullopt;
    }
    const SPoint start = bezier[0].Point();
    const SPoint corner = bezier[1].Point();
    const SPoint end = bezier[2].Point();
    const double square = weight * weight;
    const double sine = std::sqrt(1.0 - square);
    const SPoint centre = Between(corner, Between(start, end, 0.5), 1.0 / (1.0 - square));
    const double half = std::acos(weight);
    return SArcTo{centre, (corner - centre) * weight, (end - start) * (0.5 / sine), -half, 2.0 * half, end};
}

/// Appends the pieces of one spline to a path.
class CSplinePath {
public:
    CSplinePath(const SSpline& spline, SPath& path) : m_Spline(spline), m_Path(path) {
        const auto& weights = spline.m_Weights;
        m_bWeighted = std::any_of(weights.begin(), weights.end(),
                                  [&weights](double weight) { return weight != weights[0]; });
        m_Extent = ExtentOf(spline.m_Controls);
    }

    void AddAll() {
        const size_t nDegree = static_cast<size_t>(m_Spline.m_nDegree);
        bool bFirst = true;
        for (size_t i = nDegree; i < m_Spline.m_Controls.size(); ++i) {
            if (m_Spline.m_Knots[i] < m_Spline.m_Knots[i + 1]) {
                AddSpan(SpanAt(i), bFirst);
                bFirst = false;
            }
        }
        Close();
    }

private:
    static double ExtentOf(const std::vector<SPoint>& points) {
        SPlaneBox box;
        for (const SPoint& point : points) {
            box.Include(point);
        }
        return Distance(box.m_Low, box.m_High);
    }

    [[nodiscard]] SControl ControlAt(size_t nIndex) const {
        const SPoint at = m_Spline.m_Controls[nIndex];
        const double weight = m_bWeighted ? m_Spline.m_Weights[nIndex] : 1.0;
        return {weight * at.m_X, weight * at.m_Y, weight};
    }

    /// The curve between two knots that follow each other. Its control points are values of its polar form,
    /// the function that is linear in each of its arguments and gives the curve where all are the same: so
    /// many arguments are the first knot, the others the second (Ramshaw 1989, "Blossoms are polar forms").
    [[nodiscard]] CBezier SpanAt(size_t nKnot) const {
        const size_t nDegree = static_cast<size_t>(m_Spline.m_nDegree);
        const auto& knots = m_Spline.m_Knots;
        CBezier span;
        CBezier values(nDegree + 1);
        for (size_t nLater = 0; nLater <= nDegree; ++nLater) {
            for (size_t i = 0; i <= nDegree; ++i) {
                values[i] = ControlAt(nKnot - nDegree + i);
            }
            for (size_t nStep = 1; nStep <= nDegree; ++nStep) {
                const double argument = knots[nStep <= nLater ? nKnot + 1 : nKnot];
                for (size_t i = nDegree; i >= nStep; --i) {
                    const double low = knots[nKnot - nDegree + i];
                    const double high = knots[nKnot + 1 + i - nStep];
                    values[i] = Between(values[i - 1], values[i], (argument - low) / (high - low));
                }
            }
            span.push_back(values[nDegree]);
        }
        return span;
    }

    void AddSpan(const CBezier& span, bool bFirst) {
        const SPoint start = span[0].Point();
        if (bFirst) {
            m_Path.m_Start = start;
        } else if (Distance(EndOf(m_Path), start) > SAME_POINT * m_Extent) {
            m_Path.m_Stretches.emplace_back(SLineTo{start});  // a knot repeated so often lets the curve jump
        }
        if (m_Spline.m_nDegree == 1) {
            m_Path.m_Stretches.emplace_back(SLineTo{span[1].Point()});
        } else if (!m_bWeighted && m_Spline.m_nDegree <= 3) {
            m_Path.m_Stretches.emplace_back(CubicFor(span));
        } else if (const auto conic = m_bWeighted ? FindConic(span) : std::nullopt) {
            m_Path.m_Stretches.emplace_back(*conic);
        } else {
            Follow(span, 0);
        }
    }

    void Follow(const CBezier& bezier, int nHalvings) {
        const SCurveTo cubic = CubicFor(bezier);
        if (nHalvings == MOST_HALVINGS || IsNear(bezier, cubic)) {
            m_Path.m_Stretches.emplace_back(cubic);
            return;
        }
        const auto [first, second] = Halves(bezier);
        Follow(first, nHalvings + 1);
        Follow(second, nHalvings + 1);
    }

    /// The difference of two such curves has its largest values well inside; some shares are enough to see
    /// it.
    [[nodiscard]] bool IsNear(const CBezier& bezier, const SCurveTo& cubic) const {
        constexpr std::array SHARES{0.2, 0.35, 0.5, 0.65, 0.8};
        return std::all_of(SHARES.begin(), SHARES.end(), [&](double share) {
            const SPoint there = PointAt(bezier[0].Point(), cubic, share);
            return Distance(PointAt(bezier, share), there) <= SPLINE_TOLERANCE / 2.0 * m_Extent;
        });
    }

    void Close() {
        if (Distance(EndOf(m_Path), m_Path.m_Start) > SAME_POINT * m_Extent) {
            return;
        }
        m_Path.m_bClosed = true;
        std::visit([this](auto& stretch) { stretch.m_End = m_Path.m_Start; }, m_Path.m_Stretches.back());
    }

    const SSpline& m_Spline;
    SPath& m_Path;
    bool m_bWeighted = false;
    double m_Extent = 0.0;
};

}  // namespace

std::string FaultOf(const SSpline& spline) {
    const int nDegree = spline.m_nDegree;
    if (nDegree < 1 || nDegree > HIGHEST_DEGREE) {
        return "the degree of a spline is " + std::to_string(nDegree) + ", not from 1 to " +
               std::to_string(HIGHEST_DEGREE);
    }
    const size_t nControls = spline.m_Controls.size();
    const size_t nNeeded = nControls + static_cast<size_t>(nDegree) + 1;
    if (nControls <= static_cast<size_t>(nDegree)) {
        return "a spline of degree " + std::to_string(nDegree) + " has " + std::to_string(nControls) +
               " control points only";
    }
    if (spline.m_Knots.size() != nNeeded) {
        return "a spline of degree " + std::to_string(nDegree) + " with " + std::to_string(nControls) +
               " control points has " + std::to_string(spline.m_Knots.size()) + " knots instead of " +
               std::to_string(nNeeded);
    }
    if (!std::is_sorted(spline.m_Knots.begin(), spline.m_Knots.end())) {
        return "the knots of a spline do not ascend";
    }
    if (!(spline.m_Knots[static_cast<size_t>(nDegree)] < spline.m_Knots[nControls])) {
        return "all knots of a spline are the same";
    }
    const auto& weights = spline.m_Weights;
    constexpr double LEAST_WEIGHT = 1e-9;
    if (std::any_of(weights.begin(), weights.end(), [](double weight) { return weight < LEAST_WEIGHT; })) {
        return "a spline has a weight that is not positive";
    }
    return {};
}

SPath PathOf(const SSpline& spline) {
    SPath path;
    CSplinePath(spline, path).AddAll();
    return path;
}

}  // namespace nestrix
