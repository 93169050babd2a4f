#include "drawing/CLineNet.h"

#include <algorithm>
#include <cmath>
#include <numeric>
#include <unordered_map>

#include "drawing/EndJoining.h"
#include "drawing/Flattening.h"
#include "drawing/LineOrder.h"
#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Of a line's extent: how finely it is followed to tell what is left or right of what.
constexpr double FINENESS = 1e-3;

std::vector<SPoint> PointsOf(const SPath& line) {
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

std::vector<size_t> LinesOf(const CLineWalk& walk) {
    std::vector<size_t> lines;
    for (const SDirectedLine line : walk) {
        lines.push_back(line.m_nLine);
    }
    return lines;
}

/// Lines that a walk passes in both directions: they lead from one contour to another. Where lines cross
/// without a node, others may be among them.
std::vector<size_t> PassedTwice(const CLineWalk& walk) {
    std::vector<size_t> lines = LinesOf(walk);
    std::sort(lines.begin(), lines.end());
    std::vector<size_t> twice;
    for (size_t i = 1; i < lines.size(); ++i) {
        if (lines[i] == lines[i - 1]) {
            twice.push_back(lines[i]);
        }
    }
    return twice;
}

}  // namespace

CLineNet::CLineNet(std::span<const SPath> lines, double tolerance) {
    std::vector<SPoint> ends;
    std::vector<double> lengths;
    for (const SPath& path : lines) {
        SLine line;
        line.m_Points = PointsOf(path);
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

void CLineNet::LeaveNet(size_t nLine) {
    m_Lines[nLine].m_bInNet = false;
    for (const size_t nNode : m_Lines[nLine].m_Nodes) {
        --m_Nodes[nNode].m_nInNet;
    }
}

/// The lines leave the net, and others that lead nowhere without them.
void CLineNet::TakeOut(const std::vector<size_t>& lines) {
    for (const size_t nLine : lines) {
        LeaveNet(nLine);
    }
    for (const size_t nLine : lines) {
        for (const size_t nNode : m_Lines[nLine].m_Nodes) {
            Prune(nNode);
        }
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

/// How the leftmost line of all that are connected is walked to have nothing of them to the right.
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

/// Along the border of what is to the right, back to the beginning.
CLineWalk CLineNet::WalkFrom(SDirectedLine first) const {
    CLineWalk walk;
    SDirectedLine line = first;
    do {
        walk.push_back(line);
        const size_t nPlace = m_Lines[line.m_nLine].m_Places[line.m_bBack ? 0 : 1];
        line = FirstInNet(TargetOf(line), nPlace + 1);
    } while (line != first);
    return walk;
}

/// A closed walk in parts, none of which comes to a node twice.
std::vector<CLineWalk> CLineNet::SimpleCycles(const CLineWalk& walk) const {
    std::vector<CLineWalk> cycles;
    CLineWalk open;
    std::unordered_map<size_t, size_t> places;  // of nodes among the starts of the open lines
    const auto close = [&](size_t nFrom) {
        cycles.emplace_back(open.begin() + static_cast<std::ptrdiff_t>(nFrom), open.end());
        open.resize(nFrom);
        for (const SDirectedLine line : cycles.back()) {
            places.erase(StartOf(line));
        }
    };
    for (const SDirectedLine line : walk) {
        if (const auto place = places.find(StartOf(line)); place != places.end()) {
            close(place->second);
        }
        places[StartOf(line)] = open.size();
        open.push_back(line);
    }
    close(0);
    return cycles;
}

CLineWalk CLineNet::FromLowestLeft(CLineWalk cycle) const {
    const auto first = std::min_element(cycle.begin(), cycle.end(), [this](SDirectedLine a, SDirectedLine b) {
        return IsBefore(m_Nodes[StartOf(a)].m_At, m_Nodes[StartOf(b)].m_At);
    });
    std::rotate(cycle.begin(), first, cycle.end());
    return cycle;
}

CLineWalk CLineNet::CounterClockwise(CLineWalk cycle) const {
    double twiceArea = 0.0;
    for (const SDirectedLine line : cycle) {
        const std::vector<SPoint>& points = m_Lines[line.m_nLine].m_Points;
        const SPoint origin = m_Nodes[StartOf(cycle.front())].m_At;
        for (size_t i = 0; i + 1 < points.size(); ++i) {
            twiceArea += Cross(points[i] - origin, points[i + 1] - origin) * (line.m_bBack ? -1.0 : 1.0);
        }
    }
    if (twiceArea < 0.0) {
        std::reverse(cycle.begin(), cycle.end());
        for (SDirectedLine& line : cycle) {
            line.m_bBack = !line.m_bBack;
        }
    }
    return cycle;
}

SLineWalks CLineNet::TakeWalks() {
    SLineWalks walks;
    TakeContours(walks);
    TakeRest(walks);
    return walks;
}

void CLineNet::TakeContours(SLineWalks& walks) {
    for (size_t i = 0; i < m_Nodes.size(); ++i) {
        Prune(i);
    }
    std::vector<size_t> order(m_Lines.size());
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(),
              [this](size_t a, size_t b) { return IsBefore(LeftmostOf(a), LeftmostOf(b)); });
    for (const size_t nLine : order) {
        while (m_Lines[nLine].m_bInNet) {
            const CLineWalk walk = WalkFrom(OuterDirection(nLine));
            const std::vector<size_t> bridges = PassedTwice(walk);
            if (!bridges.empty()) {
                TakeOut(bridges);
                continue;
            }
            for (CLineWalk& cycle : SimpleCycles(walk)) {
                for (const SDirectedLine line : cycle) {
                    m_Lines[line.m_nLine].m_bTaken = true;
                }
                walks.m_Closed.push_back(FromLowestLeft(std::move(cycle)));
            }
            TakeOut(LinesOf(walk));
        }
    }
}

/// The walk from a line on through all nodes at which two open lines meet.
CLineWalk CLineNet::OpenWalk(SDirectedLine first, const std::vector<size_t>& counts) {
    CLineWalk walk;
    SDirectedLine line = first;
    while (true) {
        m_Lines[line.m_nLine].m_bTaken = true;
        walk.push_back(line);
        const size_t nNode = TargetOf(line);
        if (counts[nNode] != 2) {
            return walk;
        }
        const std::vector<SDirectedLine>& leaving = m_Nodes[nNode].m_Leaving;
        const auto next = std::find_if(leaving.begin(), leaving.end(),
                                       [this](SDirectedLine one) { return !m_Lines[one.m_nLine].m_bTaken; });
        if (next == leaving.end()) {
            return walk;
        }
        line = *next;
    }
}

void CLineNet::TakeRest(SLineWalks& walks) {
    std::vector<size_t> counts(m_Nodes.size());
    for (const SLine& line : m_Lines) {
        for (const size_t nNode : line.m_Nodes) {
            counts[nNode] += line.m_bTaken ? 0 : 1;
        }
    }
    // Those in the middle of a longer one are taken along with it; rings, which are left only where lines
    // cross without a node, come last.
    for (const bool bAnywhere : {false, true}) {
        for (size_t i = 0; i < m_Lines.size(); ++i) {
            for (const SDirectedLine line : {SDirectedLine{i, false}, SDirectedLine{i, true}}) {
                if (m_Lines[i].m_bTaken || (!bAnywhere && counts[StartOf(line)] == 2)) {
                    continue;
                }
                CLineWalk walk = OpenWalk(line, counts);
                if (TargetOf(walk.back()) == StartOf(line)) {
                    walks.m_Closed.push_back(FromLowestLeft(CounterClockwise(std::move(walk))));
                } else {
                    walks.m_Open.push_back(std::move(walk));
                }
            }
        }
    }
}

}  // namespace nestrix
