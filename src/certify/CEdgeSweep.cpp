#include "certify/CEdgeSweep.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

#include "certify/Wide.h"

namespace nestrix::certify {

namespace {

/// Directions are this long, or a little less, and places along them are divided by it again: those along an
/// axis are exact, others rounded down, which leaves them in their order.
constexpr int DIRECTION_BITS = 20;
constexpr int64_t DIRECTION_LENGTH = int64_t{1} << DIRECTION_BITS;

constexpr SGridPoint EAST{DIRECTION_LENGTH, 0};
constexpr SGridPoint NORTH{0, DIRECTION_LENGTH};

/// No other direction is looked for where an axis leaves no more edges than this side by side.
constexpr double FEW = 16.0;

}  // namespace

SRange CEdgeSweep::RangeOf(const SEdge& edge, SGridPoint direction) {
    const auto [nLow, nHigh] = std::minmax({Dot(edge.m_From, direction), Dot(edge.m_To, direction)});
    const CWide nReach =
        Dot({edge.m_nReach, edge.m_nReach}, {std::abs(direction.m_nX), std::abs(direction.m_nY)});
    return {static_cast<int64_t>((nLow - nReach) >> DIRECTION_BITS),
            static_cast<int64_t>((nHigh + nReach) >> DIRECTION_BITS)};
}

/// How many edges a line across the direction meets on average.
double CEdgeSweep::CrowdAlong(SGridPoint direction, CEdges first, CEdges second) {
    double sum = 0.0;
    SRange whole{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()};
    for (const CEdges edges : {first, second}) {
        for (const SEdge& edge : edges) {
            const SRange range = RangeOf(edge, direction);
            sum += static_cast<double>(range.m_nHigh - range.m_nLow);
            whole = {std::min(whole.m_nLow, range.m_nLow), std::max(whole.m_nHigh, range.m_nHigh)};
        }
    }
    return sum / (static_cast<double>(whole.m_nHigh) - static_cast<double>(whole.m_nLow) + 1.0);
}

/// At right angles to the edges, on an average over their lengths that takes opposite directions for the
/// same: of their angles doubled. It only has to be about right.
SGridPoint CEdgeSweep::AcrossMost(CEdges first, CEdges second) {
    double x = 0.0;
    double y = 0.0;
    for (const CEdges edges : {first, second}) {
        for (const SEdge& edge : edges) {
            const SGridPoint along = edge.m_To - edge.m_From;
            const auto right = static_cast<double>(along.m_nX);
            const auto up = static_cast<double>(along.m_nY);
            const double length = std::max(std::hypot(right, up), 1.0);
            x += (right * right - up * up) / length;
            y += 2.0 * right * up / length;
        }
    }
    const double angle = std::atan2(y, x) / 2.0;
    const auto length = static_cast<double>(DIRECTION_LENGTH);
    return {std::llround(-length * std::sin(angle)), std::llround(length * std::cos(angle))};
}

SGridPoint CEdgeSweep::BestDirection(CEdges first, CEdges second) {
    std::pair best(CrowdAlong(EAST, first, second), EAST);
    const auto tryIt = [&](SGridPoint direction) {
        const double crowd = CrowdAlong(direction, first, second);
        best = crowd < best.first ? std::pair(crowd, direction) : best;
    };
    tryIt(NORTH);
    if (best.first > FEW) {
        tryIt(AcrossMost(first, second));
    }
    return best.second;
}

CRangeSweep CEdgeSweep::Along(SGridPoint direction) const {
    const SGridPoint across{-direction.m_nY, direction.m_nX};
    CRangeSweep sweep;
    sweep.Reserve(m_Edges.size());
    for (const SEdge& edge : m_Edges) {
        sweep.Add(RangeOf(edge, direction), RangeOf(edge, across), edge.m_nIndex);
    }
    return sweep;
}

}  // namespace nestrix::certify
