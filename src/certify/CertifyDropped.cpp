#include <algorithm>
#include <cmath>
#include <cstddef>
#include <iterator>
#include <limits>
#include <utility>
#include <vector>

#include "certify/Certify.h"
#include "certify/Pairs.h"
#include "certify/SBorder.h"
#include "certify/Wide.h"

namespace nestrix {

namespace {

using certify::SBorder;
using EKind = SViolation::EKind;
using CPoints = std::vector<mgVector3>;

CPoints PointsOf(const CPolygon& polygon, const mgVector3& at) {
    CPoints points;
    points.reserve(polygon.m_Points.size());
    for (const CPoint& point : polygon.m_Points) {
        points.push_back({point.m_Position.x + at.x, point.m_Position.y + at.y, 0.0F});
    }
    return points;
}

bool IsFinite(const CPoints& points) {
    return std::all_of(points.begin(), points.end(), [](const mgVector3& point) {
        return std::isfinite(point.x) && std::isfinite(point.y);
    });
}

/// The coordinates of some points in binary: all are multiples of 2 to the last digit, and less than 2 to the
/// first one plus 1.
struct SDigits {
    int m_nFirst = std::numeric_limits<int>::min();
    int m_nLast = std::numeric_limits<int>::max();
};

/// Digits of single precision: from 2^-149 to 2^127.
constexpr int LAST_DIGIT = -149;
constexpr int FIRST_DIGIT = 127;

/// Coordinates of so many digits are at most COORDINATE_MOST.
constexpr int DIGITS_MOST = 60;

SDigits DigitsOf(const CPoints& points) {
    SDigits digits;
    const auto include = [&digits](float fCoordinate) {
        if (fCoordinate == 0.0F) {
            return;
        }
        int nExponent = 0;
        auto nMantissa = static_cast<int64_t>(std::ldexp(std::frexp(fCoordinate, &nExponent), 24));  // exact
        int nLast = nExponent - 24;
        for (; nMantissa % 2 == 0; nMantissa /= 2) {
            ++nLast;
        }
        digits = {std::max(digits.m_nFirst, nExponent - 1), std::min(digits.m_nLast, nLast)};
    };
    for (const mgVector3& point : points) {
        include(point.x);
        include(point.y);
    }
    return digits;
}

bool Fits(const SDigits& digits, int nLast) {
    return digits.m_nFirst < nLast + DIGITS_MOST && digits.m_nLast >= nLast;
}

/// The unit, as a power of two, with which the coordinates of the most shapes are whole numbers that fit.
int FindUnit(std::span<const SDigits> shapes) {
    int nBest = LAST_DIGIT;
    std::ptrdiff_t nMost = -1;
    for (int nLast = FIRST_DIGIT; nLast >= LAST_DIGIT; --nLast) {
        const auto nFitting = std::count_if(shapes.begin(), shapes.end(),
                                            [nLast](const SDigits& digits) { return Fits(digits, nLast); });
        if (nFitting > nMost) {
            nMost = nFitting;
            nBest = nLast;
        }
    }
    return nBest;
}

SGridShape InUnits(const CPoints& points, int nUnit) {
    SGridShape shape;
    for (const mgVector3& point : points) {
        shape.m_Outline.push_back({static_cast<int64_t>(std::ldexp(static_cast<double>(point.x), -nUnit)),
                                   static_cast<int64_t>(std::ldexp(static_cast<double>(point.y), -nUnit))});
    }
    return shape;
}

/// Whether the polygon is sound as it was read; moved, its points are rounded.
bool IsSound(const CPolygon& polygon) {
    const CPoints points = PointsOf(polygon, {});
    if (!IsFinite(points)) {
        return false;
    }
    const SDigits digits = DigitsOf(points);
    const int nUnit = FindUnit({&digits, 1});
    return Fits(digits, nUnit) && nestrix::IsSound(InUnits(points, nUnit));
}

/// How far any point reaches out of the strip; at most 0 if none does.
double ReachOut(const CPoints& points, const SStrip& strip) {
    double out = 0.0;
    for (const mgVector3& point : points) {
        const double right = static_cast<double>(point.x) - static_cast<double>(strip.m_fWidth);
        out = std::max({out, -static_cast<double>(point.x), -static_cast<double>(point.y), right});
    }
    return out;
}

/// The shapes of the placements, and what is wrong with each of them by itself.
class CDroppedShapes {
public:
    CDroppedShapes(std::span<const CPolygon> pieces, const SPacking& packing)
        : m_Points(packing.m_Placed.size()), m_Digits(packing.m_Placed.size()) {
        const std::vector<bool> sound = FindSound(pieces);
        for (size_t i = 0; i < m_Points.size(); ++i) {
            const size_t nPiece = static_cast<size_t>(packing.m_Placed[i].m_nPiece);
            if (nPiece >= pieces.size()) {
                Report(EKind::UNKNOWN_PIECE, i, 0.0);
                continue;
            }
            CPoints points = PointsOf(pieces[nPiece], packing.m_Placed[i].m_At);
            if (!sound[nPiece] || !IsFinite(points)) {
                Report(EKind::SHAPE, i, 0.0);
                continue;
            }
            if (const double out = ReachOut(points, packing.m_Strip); out > 0.0) {
                Report(EKind::STRIP, i, out);
            }
            m_Digits[i] = DigitsOf(points);
            m_Points[i] = std::move(points);
        }
    }

    /// The borders in units of 2 to a power. Shapes that do not fit are reported, and have none.
    [[nodiscard]] std::vector<SBorder> FindBorders(int nUnit) {
        std::vector<SBorder> borders(m_Points.size());
        for (size_t i = 0; i < m_Points.size(); ++i) {
            if (!Fits(m_Digits[i], nUnit)) {
                Report(EKind::SHAPE, i, 0.0);
            } else if (!m_Points[i].empty()) {
                borders[i] = certify::BorderOf(InUnits(m_Points[i], nUnit));
            }
        }
        return borders;
    }

    [[nodiscard]] int Unit() const { return FindUnit(m_Digits); }
    [[nodiscard]] std::vector<SViolation>& Violations() { return m_Violations; }

private:
    static std::vector<bool> FindSound(std::span<const CPolygon> pieces) {
        std::vector<bool> sound;
        sound.reserve(pieces.size());
        for (const CPolygon& piece : pieces) {
            sound.push_back(IsSound(piece));
        }
        return sound;
    }

    void Report(EKind eKind, size_t nPlacement, double amount) {
        m_Violations.push_back({eKind, static_cast<int>(nPlacement), -1, amount});
    }

    std::vector<CPoints> m_Points;
    std::vector<SDigits> m_Digits;
    std::vector<SViolation> m_Violations;
};

}  // namespace

SCertificate Certify(std::span<const CPolygon> pieces, const SPacking& packing) {
    CDroppedShapes shapes(pieces, packing);
    const int nUnit = shapes.Unit();
    const std::vector<SBorder> borders = shapes.FindBorders(nUnit);
    SCertificate certificate{std::move(shapes.Violations())};
    const std::vector<SViolation> pairs = certify::FindWrongPairs(borders, 0, std::ldexp(1.0, nUnit));
    std::copy(pairs.begin(), pairs.end(), std::back_inserter(certificate.m_Violations));
    return certificate;
}

}  // namespace nestrix
