#include "drawing/OpenEnds.h"

#include <algorithm>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

struct SEnd {
    SPoint m_At;
    size_t m_nLine = 0;
};

/// So many ends to the left and to the right of an end are looked at: where more of them stand in one column,
/// a nearer one may be missed, but not time.
constexpr size_t LOOKED_AT_MOST = 1000;

bool IsSingle(const SPath& line) {
    return line.m_Stretches.size() == 1 && std::holds_alternative<SLineTo>(line.m_Stretches[0]);
}

}  // namespace

std::vector<std::optional<SGap>> FindGaps(std::span<const SPath> lines) {
    std::vector<SEnd> ends;
    for (size_t i = 0; i < lines.size(); ++i) {
        ends.push_back({lines[i].m_Start, i});
        ends.push_back({EndOf(lines[i]), i});
    }
    std::sort(ends.begin(), ends.end(), [](const SEnd& a, const SEnd& b) { return a.m_At.m_X < b.m_At.m_X; });
    std::vector<std::optional<SGap>> gaps(lines.size());
    const auto compare = [&](const SEnd& a, const SEnd& b) {
        const double width = Length(b.m_At - a.m_At);
        if (a.m_nLine == b.m_nLine && IsSingle(lines[a.m_nLine])) {
            return;
        }
        for (const SEnd& end : {a, b}) {
            if (!gaps[end.m_nLine].has_value() || width < gaps[end.m_nLine]->m_Width) {
                gaps[end.m_nLine] = {end.m_At, width};
            }
        }
    };
    for (size_t i = 0; i < ends.size(); ++i) {
        for (size_t k = i + 1; k < std::min(ends.size(), i + LOOKED_AT_MOST); ++k) {
            compare(ends[i], ends[k]);
        }
    }
    return gaps;
}

}  // namespace nestrix
