#include "drawing/SPath.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

bool AreFinite(std::initializer_list<SPoint> points) {
    return std::all_of(points.begin(), points.end(), [](const SPoint& point) {
        return std::isfinite(point.m_X) && std::isfinite(point.m_Y);
    });
}

/// Walks back from the end of a stretch to where it starts.
struct SReversal {
    SPoint m_Start;

    CStretch operator()(const SLineTo& /*line*/) const { return SLineTo{m_Start}; }
    CStretch operator()(const SArcTo& arc) const {
        return SArcTo{arc.m_Centre,       arc.m_FirstRadius,
                      arc.m_SecondRadius, arc.m_From + arc.m_Sweep,
                      -arc.m_Sweep,       m_Start};
    }
    CStretch operator()(const SCurveTo& curve) const {
        return SCurveTo{curve.m_SecondControl, curve.m_FirstControl, m_Start};
    }
};

struct SFiniteness {
    bool operator()(const SLineTo& line) const { return AreFinite({line.m_End}); }
    bool operator()(const SArcTo& arc) const {
        return AreFinite({arc.m_Centre, arc.m_FirstRadius, arc.m_SecondRadius, arc.m_End}) &&
               std::isfinite(arc.m_From) && std::isfinite(arc.m_Sweep);
    }
    bool operator()(const SCurveTo& curve) const {
        return AreFinite({curve.m_FirstControl, curve.m_SecondControl, curve.m_End});
    }
};

}  // namespace

SPoint EndOf(const CStretch& stretch) {
    return std::visit([](const auto& one) { return one.m_End; }, stretch);
}

SPoint EndOf(const SPath& path) {
    return path.m_Stretches.empty() ? path.m_Start : EndOf(path.m_Stretches.back());
}

SPoint PointAt(const SArcTo& arc, double t) {
    return arc.m_Centre + arc.m_FirstRadius * std::cos(t) + arc.m_SecondRadius * std::sin(t);
}

SPath Reversed(const SPath& path) {
    SPath reversed{EndOf(path), {}, path.m_bClosed};
    reversed.m_Stretches.reserve(path.m_Stretches.size());
    for (size_t i = path.m_Stretches.size(); i-- > 0;) {
        const SPoint start = i == 0 ? path.m_Start : EndOf(path.m_Stretches[i - 1]);
        reversed.m_Stretches.push_back(std::visit(SReversal{start}, path.m_Stretches[i]));
    }
    return reversed;
}

bool IsFinite(const SPath& path) {
    return AreFinite({path.m_Start}) &&
           std::all_of(path.m_Stretches.begin(), path.m_Stretches.end(),
                       [](const CStretch& stretch) { return std::visit(SFiniteness(), stretch); });
}

}  // namespace nestrix
