#include "drawing/CLineNet.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "drawing/EndJoining.h"
#include "drawing/Flattening.h"
#include "drawing/LineOrder.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Of a line's extent: how finely it is followed to tell what is left or right of what.
constexpr double FINENESS = 1e-3;

std::vector<SPoint> ChordsOf(const SPath& line) {
    SPlaneBox box;
    box.Include(line.m_Start);
    for (const CStretch& stretch : line.m_Stretches) {
        box.Include(EndOf(stretch));
        if (const auto* pArc = std::get_if<SArcTo>(&stretch)) {
            box.Include(pArc->m_Centre);
        } else if (const auto* pCurve = std::get_if<SCurveTo>(&stretch)) {
            box.Include(pCurve->m_FirstControl);
            box.Include(pCurve->m_SecondControl);
        }
    }
    return Chords(line, FINENESS * Length(box.m_High - box.m_Low));
}

double LengthOf(const std::vector<SPoint>& points) {
    double length = 0.0;
    for (size_t i = 0; i + 1 < points.size(); ++i) {
        length += Length(points[i + 1] - points[i]);
    }
    return length;
}

}  // namespace

CLineNet::CLineNet(std::span<const SPath> lines, double tolerance) {
    std::vector<SPoint> ends;
    std::vector<double> lengths;
    for (const SPath& path : lines) {
        SLine line;
        line.m_Points = ChordsOf(path);
        line.m_nLeftmost = static_cast<size_t>(
            std::min_element(line.m_Points.begin(), line.m_Points.end(), IsBefore) - line.m_Points.begin());
        ends.insert(ends.end(), {path.m_Start, EndOf(path)});
        lengths.push_back(LengthOf(line.m_Points));
        m_Lines.push_back(std::move(line));
    }
    const std::vector<size_t> joined = JoinEnds(ends, lengths, tolerance);
    m_Nodes.resize(ends.size());
    for (size_t i = 0; i < ends.size(); ++i) {
        SNode& node = m_Nodes[joined[i]];
        const bool bFirst = node.m_Leaving.empty();
        node.m_At = bFirst || IsBefore(ends[i], node.m_At) ? ends[i] : node.m_At;
        node.m_Leaving.push_back({i / 2, i % 2 == 1});
        m_Lines[i / 2].m_Nodes[i % 2] = joined[i];
    }
    for (size_t i = 0; i < m_Nodes.size(); ++i) {
        m_Nodes[i].m_nInNet = m_Nodes[i].m_Leaving.size();
        SortAround(i);
    }
    for (size_t i = 0; i < m_Nodes.size(); ++i) {
        Prune(i);
    }
}

void CLineNet::SortAround(size_t nNode) {
    SNode& node = m_Nodes[nNode];
    std::vector<SLeavingLine> lines;
    for (const SDirectedLine line : node.m_Leaving) {
        lines.push_back({m_Lines[line.m_nLine].m_Points, line.m_bBack, m_Nodes[TargetOf(line)].m_At});
    }
    const std::vector<SDirectedLine> leaving = node.m_Leaving;
    const std::vector<size_t> order = CounterClockwiseOrder(lines);
    for (size_t i = 0; i < order.size(); ++i) {
        const SDirectedLine line = leaving[order[i]];
        node.m_Leaving[i] = line;
        m_Lines[line.m_nLine].m_Places[line.m_bBack ? 1 : 0] = i;
    }
}

void CLineNet::TakeOut(std::span<const size_t> lines) {
    for (const size_t nLine : lines) {
        LeaveNet(nLine);
    }
    for (const size_t nLine : lines) {
        for (const size_t nNode : m_Lines[nLine].m_Nodes) {
            Prune(nNode);
        }
    }
}

void CLineNet::LeaveNet(size_t nLine) {
    m_Lines[nLine].m_bInNet = false;
    for (const size_t nNode : m_Lines[nLine].m_Nodes) {
        --m_Nodes[nNode].m_nInNet;
    }
}

/// If a single line leads to a node, it leads nowhere: it leaves the net, and so on from its other end.
void CLineNet::Prune(size_t nNode) {
    while (m_Nodes[nNode].m_nInNet == 1) {
        const SDirectedLine last = FirstInNet(nNode, 0);
        LeaveNet(last.m_nLine);
        nNode = TargetOf(last);
    }
}

/// The line in the net that leaves a node at a place, or the next one counter-clockwise; there is one.
SDirectedLine CLineNet::FirstInNet(size_t nNode, size_t nPlace) const {
    const std::vector<SDirectedLine>& leaving = m_Nodes[nNode].m_Leaving;
    for (size_t i = nPlace;; ++i) {
        const SDirectedLine line = leaving[i % leaving.size()];
        if (m_Lines[line.m_nLine].m_bInNet) {
            return line;
        }
    }
}

SDirectedLine CLineNet::OuterDirection(size_t nLine) const {
    const SLine& line = m_Lines[nLine];
    if (line.m_nLeftmost == 0 || line.m_nLeftmost + 1 == line.m_Points.size()) {
        return FirstInNet(line.m_Nodes[line.m_nLeftmost == 0 ? 0 : 1], 0);
    }
    const SPoint tip = line.m_Points[line.m_nLeftmost];
    const SPoint arriving = tip - line.m_Points[line.m_nLeftmost - 1];
    const SPoint leaving = line.m_Points[line.m_nLeftmost + 1] - tip;
    return {nLine, Cross(arriving, leaving) < 0.0};
}

SDirectedLine CLineNet::NextAround(SDirectedLine line) const {
    return FirstInNet(TargetOf(line), m_Lines[line.m_nLine].m_Places[line.m_bBack ? 0 : 1] + 1);
}

}  // namespace nestrix
