#include "drawing/LineOrder.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <tuple>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

SPoint PointOf(const SLeavingLine& line, size_t n) {
    return line.m_Points[line.m_bBack ? line.m_Points.size() - 1 - n : n];
}

/// The greatest distance of the line from its start.
double ReachOf(const SLeavingLine& line) {
    double reach = 0.0;
    for (const SPoint point : line.m_Points) {
        reach = std::max(reach, Length(point - PointOf(line, 0)));
    }
    return reach;
}

/// Where the line is first so far from its start, seen from there.
SPoint PlaceAt(const SLeavingLine& line, double distance) {
    SPoint before;
    for (size_t i = 1; i < line.m_Points.size(); ++i) {
        const SPoint point = PointOf(line, i) - PointOf(line, 0);
        const SPoint step = point - before;
        const double a = Dot(step, step);
        if (Length(point) >= distance && a > 0.0) {
            // |before + share · step| = distance, for the share from 0 to 1.
            const double b = Dot(step, before);
            const double c = Dot(before, before) - distance * distance;
            return before + step * ((-b + std::sqrt(std::max(b * b - a * c, 0.0))) / a);
        }
        before = point;
    }
    return before;
}

}  // namespace

std::vector<size_t> CounterClockwiseOrder(std::span<const SLeavingLine> lines) {
    double radius = HUGE_VAL;
    for (const SLeavingLine& line : lines) {
        radius = std::min(radius, ReachOf(line) / 2.0);
    }
    // By the angles at which they leave a circle that all of them leave.
    std::vector<std::tuple<double, double, double>> keys;
    for (const SLeavingLine& line : lines) {
        const SPoint away = PlaceAt(line, radius);
        keys.emplace_back(std::atan2(away.m_Y, away.m_X), line.m_Target.m_X, line.m_Target.m_Y);
    }
    std::vector<size_t> order(lines.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(), [&keys](size_t a, size_t b) { return keys[a] < keys[b]; });
    return order;
}

}  // namespace nestrix
