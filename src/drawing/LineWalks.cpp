#include "drawing/LineWalks.h"

#include <algorithm>
#include <numeric>
#include <span>
#include <unordered_map>
#include <utility>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

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

/// Takes the lines of a net, walk by walk, until none is left. Good for one use.
class CWalkFinder {
public:
    explicit CWalkFinder(CLineNet net) : m_Net(std::move(net)), m_Taken(m_Net.LineCount(), false) {}

    [[nodiscard]] SLineWalks Find() {
        FindContours();
        FindRest();
        return std::move(m_Walks);
    }

private:
    void FindContours();
    void FindRest();
    [[nodiscard]] CLineWalk WalkAlongBorder(SDirectedLine first) const;
    [[nodiscard]] CLineWalk OpenWalk(SDirectedLine first, const std::vector<size_t>& counts);
    [[nodiscard]] std::vector<CLineWalk> SimpleCycles(const CLineWalk& walk) const;
    [[nodiscard]] CLineWalk FromLowestLeft(CLineWalk cycle) const;
    [[nodiscard]] CLineWalk CounterClockwise(CLineWalk cycle) const;
    [[nodiscard]] std::vector<size_t> CountOpenLines() const;

    CLineNet m_Net;
    std::vector<bool> m_Taken;  ///< of each line, whether it is part of a walk
    SLineWalks m_Walks;
};

void CWalkFinder::FindContours() {
    std::vector<size_t> order(m_Net.LineCount());
    std::iota(order.begin(), order.end(), size_t{0});
    std::sort(order.begin(), order.end(),
              [this](size_t a, size_t b) { return IsBefore(m_Net.LeftmostOf(a), m_Net.LeftmostOf(b)); });
    for (const size_t nLine : order) {
        while (m_Net.IsInNet(nLine)) {
            const CLineWalk walk = WalkAlongBorder(m_Net.OuterDirection(nLine));
            const std::vector<size_t> bridges = PassedTwice(walk);
            if (!bridges.empty()) {
                m_Net.TakeOut(bridges);
                continue;
            }
            for (CLineWalk& cycle : SimpleCycles(walk)) {
                for (const SDirectedLine line : cycle) {
                    m_Taken[line.m_nLine] = true;
                }
                m_Walks.m_Closed.push_back(FromLowestLeft(std::move(cycle)));
            }
            m_Net.TakeOut(LinesOf(walk));
        }
    }
}

void CWalkFinder::FindRest() {
    const std::vector<size_t> counts = CountOpenLines();
    // Those in the middle of a longer one are taken along with it; rings, which are left only where lines
    // cross without a node, come last.
    for (const bool bAnywhere : {false, true}) {
        for (size_t i = 0; i < m_Net.LineCount(); ++i) {
            for (const SDirectedLine line : {SDirectedLine{i, false}, SDirectedLine{i, true}}) {
                if (m_Taken[i] || (!bAnywhere && counts[m_Net.StartOf(line)] == 2)) {
                    continue;
                }
                CLineWalk walk = OpenWalk(line, counts);
                if (m_Net.TargetOf(walk.back()) == m_Net.StartOf(line)) {
                    m_Walks.m_Closed.push_back(FromLowestLeft(CounterClockwise(std::move(walk))));
                } else {
                    m_Walks.m_Open.push_back(std::move(walk));
                }
            }
        }
    }
}

/// At each node, the ends of lines there that are not taken.
std::vector<size_t> CWalkFinder::CountOpenLines() const {
    std::vector<size_t> counts(m_Net.NodeCount());
    for (size_t i = 0; i < m_Net.LineCount(); ++i) {
        for (const SDirectedLine line : {SDirectedLine{i, false}, SDirectedLine{i, true}}) {
            counts[m_Net.StartOf(line)] += m_Taken[i] ? 0 : 1;
        }
    }
    return counts;
}

/// Along the border of what is to the right, back to the beginning.
CLineWalk CWalkFinder::WalkAlongBorder(SDirectedLine first) const {
    CLineWalk walk;
    SDirectedLine line = first;
    do {
        walk.push_back(line);
        line = m_Net.NextAround(line);
    } while (line != first);
    return walk;
}

/// The walk from a line on through all nodes at which two open lines meet.
CLineWalk CWalkFinder::OpenWalk(SDirectedLine first, const std::vector<size_t>& counts) {
    CLineWalk walk;
    SDirectedLine line = first;
    while (true) {
        m_Taken[line.m_nLine] = true;
        walk.push_back(line);
        const size_t nNode = m_Net.TargetOf(line);
        if (counts[nNode] != 2) {
            return walk;
        }
        const std::span<const SDirectedLine> leaving = m_Net.Leaving(nNode);
        const auto next = std::find_if(leaving.begin(), leaving.end(),
                                       [this](SDirectedLine one) { return !m_Taken[one.m_nLine]; });
        if (next == leaving.end()) {
            return walk;
        }
        line = *next;
    }
}

/// A closed walk in parts, none of which comes to a node twice.
std::vector<CLineWalk> CWalkFinder::SimpleCycles(const CLineWalk& walk) const {
    std::vector<CLineWalk> cycles;
    CLineWalk open;
    std::unordered_map<size_t, size_t> places;  // of nodes among the starts of the open lines
    const auto close = [&](size_t nFrom) {
        cycles.emplace_back(open.begin() + static_cast<std::ptrdiff_t>(nFrom), open.end());
        open.resize(nFrom);
        for (const SDirectedLine line : cycles.back()) {
            places.erase(m_Net.StartOf(line));
        }
    };
    for (const SDirectedLine line : walk) {
        if (const auto place = places.find(m_Net.StartOf(line)); place != places.end()) {
            close(place->second);
        }
        places[m_Net.StartOf(line)] = open.size();
        open.push_back(line);
    }
    close(0);
    return cycles;
}

CLineWalk CWalkFinder::FromLowestLeft(CLineWalk cycle) const {
    const auto startOf = [this](SDirectedLine line) { return m_Net.PlaceOf(m_Net.StartOf(line)); };
    const auto first = std::min_element(
        cycle.begin(), cycle.end(),
        [&startOf](SDirectedLine a, SDirectedLine b) { return IsBefore(startOf(a), startOf(b)); });
    std::rotate(cycle.begin(), first, cycle.end());
    return cycle;
}

CLineWalk CWalkFinder::CounterClockwise(CLineWalk cycle) const {
    const SPoint origin = m_Net.PlaceOf(m_Net.StartOf(cycle.front()));
    double twiceArea = 0.0;
    for (const SDirectedLine line : cycle) {
        const std::span<const SPoint> points = m_Net.PointsOf(line.m_nLine);
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

}  // namespace

SLineWalks FindWalks(CLineNet net) {
    return CWalkFinder(std::move(net)).Find();
}

}  // namespace nestrix
