#include "drawing/LineJoining.h"

#include <algorithm>
#include <utility>

#include "drawing/EndJoining.h"
#include "drawing/LineWalks.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

bool IsArc(const CStretch& stretch) {
    return std::holds_alternative<SArcTo>(stretch);
}

void SetEnd(CStretch& stretch, SPoint end) {
    std::visit([end](auto& one) { one.m_End = end; }, stretch);
}

/// Makes one line of those that a walk goes along, and closes the gaps between them. Lines and Bezier curves
/// are moved with their ends; between two arcs, which must stay where they are, comes a straight line.
class CLineAssembly {
public:
    CLineAssembly(std::span<const SPath> lines, double rounding) : m_Lines(lines), m_Rounding(rounding) {}

    [[nodiscard]] SJoinedLine Assemble(const CLineWalk& walk, bool bClosed) const {
        SJoinedLine joined;
        for (const SDirectedLine& directed : walk) {
            const SPath& line = m_Lines[directed.m_nLine];
            Append(joined.m_Path, directed.m_bBack ? Reversed(line) : line);
            joined.m_Sources.push_back(directed.m_nLine);
        }
        std::sort(joined.m_Sources.begin(), joined.m_Sources.end());
        if (bClosed) {
            Close(joined.m_Path);
        }
        return joined;
    }

private:
    void Append(SPath& path, SPath next) const {
        if (path.m_Stretches.empty()) {
            path = std::move(next);
            path.m_bClosed = false;
            return;
        }
        if (next.m_Stretches.empty()) {
            return;
        }
        if (IsArc(next.m_Stretches.front())) {
            LeadTo(path, next.m_Start);
        }
        path.m_Stretches.insert(path.m_Stretches.end(), next.m_Stretches.begin(), next.m_Stretches.end());
    }

    void Close(SPath& path) const {
        path.m_bClosed = true;
        if (IsArc(path.m_Stretches.front())) {
            LeadTo(path, path.m_Start);
        } else {
            path.m_Start = EndOf(path);
        }
    }

    void LeadTo(SPath& path, SPoint point) const {
        const double gap = Length(EndOf(path) - point);
        if (!IsArc(path.m_Stretches.back()) || gap <= m_Rounding) {
            SetEnd(path.m_Stretches.back(), point);
        } else {
            path.m_Stretches.emplace_back(SLineTo{point});
        }
    }

    std::span<const SPath> m_Lines;
    double m_Rounding;
};

}  // namespace

SJoinedLines JoinLines(std::span<const SPath> lines, double tolerance) {
    const SLineWalks walks = FindWalks(CLineNet(lines, tolerance));
    const CLineAssembly assembly(lines, ROUNDING_OF_TOLERANCE * tolerance);
    SJoinedLines joined;
    for (const CLineWalk& walk : walks.m_Closed) {
        joined.m_Closed.push_back(assembly.Assemble(walk, true));
    }
    for (const CLineWalk& walk : walks.m_Open) {
        SJoinedLine line = assembly.Assemble(walk, false);
        if (IsBefore(EndOf(line.m_Path), line.m_Path.m_Start)) {
            line.m_Path = Reversed(line.m_Path);
        }
        joined.m_Open.push_back(std::move(line));
    }
    return joined;
}

}  // namespace nestrix
