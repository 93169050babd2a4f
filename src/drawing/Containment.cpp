#include "drawing/Containment.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>
#include <set>

#include "packing/PointVectors.h"

namespace nestrix {

namespace {

/// Whether the edge crosses the height, its lower end counted to it; so that a corner is counted once.
bool Crosses(SPoint a, SPoint b, double y) {
    return (a.m_Y <= y) != (b.m_Y <= y);
}

double CrossingAt(SPoint a, SPoint b, double y) {
    return a.m_X + (b.m_X - a.m_X) * ((y - a.m_Y) / (b.m_Y - a.m_Y));
}

/// A ring's edges in bands of height, made for many questions about one ring.
class CRingBands {
public:
    explicit CRingBands(const CRing& ring) : m_Ring(ring) {
        double heights = 0.0;
        for (size_t i = 0; i < ring.size(); ++i) {
            m_Box.Include(ring[i]);
            heights += std::abs(ring[i].m_Y - End(i).m_Y);
        }
        const double height = m_Box.m_High.m_Y - m_Box.m_Low.m_Y;
        const auto nEdges = static_cast<double>(ring.size());
        // An edge is in every band that it crosses: as many bands as leave each edge in three on average.
        const double most = heights > 0.0 ? 2.0 * nEdges * (height / heights) : 1.0;
        m_Bands.resize(static_cast<size_t>(std::clamp(most, 1.0, nEdges)));
        m_PerLength = height > 0.0 ? static_cast<double>(m_Bands.size()) / height : 0.0;
        for (size_t i = 0; i < ring.size(); ++i) {
            const size_t nFirst = BandOf(std::min(ring[i].m_Y, End(i).m_Y));
            const size_t nLast = BandOf(std::max(ring[i].m_Y, End(i).m_Y));
            for (size_t nBand = nFirst; nBand <= nLast; ++nBand) {
                m_Bands[nBand].push_back(i);
            }
        }
    }

    [[nodiscard]] bool Contains(SPoint point) const {
        if (!m_Box.Contains(point)) {
            return false;
        }
        bool bInside = false;
        for (const size_t i : m_Bands[BandOf(point.m_Y)]) {
            if (Crosses(m_Ring[i], End(i), point.m_Y) &&
                CrossingAt(m_Ring[i], End(i), point.m_Y) > point.m_X) {
                bInside = !bInside;
            }
        }
        return bInside;
    }

private:
    [[nodiscard]] SPoint End(size_t nEdge) const { return m_Ring[(nEdge + 1) % m_Ring.size()]; }
    [[nodiscard]] size_t BandOf(double y) const {
        const auto nBand = static_cast<size_t>((y - m_Box.m_Low.m_Y) * m_PerLength);
        return std::min(nBand, m_Bands.size() - 1);
    }

    const CRing& m_Ring;
    SPlaneBox m_Box;
    double m_PerLength = 0.0;
    std::vector<std::vector<size_t>> m_Bands;
};

SPlaneBox BoxOf(const CRing& ring) {
    SPlaneBox box;
    for (const SPoint point : ring) {
        box.Include(point);
    }
    return box;
}

/// Goes over rings and queries from the left to the right, with the rings that reach over the place at hand
/// in the order of their areas.
class CContainmentSweep {
public:
    CContainmentSweep(std::span<const CRing> rings, std::span<const SContainmentQuery> queries)
        : m_Rings(rings), m_Queries(queries), m_Bands(rings.size()) {
        for (const CRing& ring : rings) {
            m_Boxes.push_back(BoxOf(ring));
            m_Areas.push_back(AreaOf(ring));
        }
    }

    [[nodiscard]] std::vector<int> Answers() {
        std::vector<size_t> starts(m_Rings.size());
        std::iota(starts.begin(), starts.end(), size_t{0});
        std::vector<size_t> ends = starts;
        const auto low = [this](size_t i) { return m_Boxes[i].m_Low.m_X; };
        const auto high = [this](size_t i) { return m_Boxes[i].m_High.m_X; };
        std::sort(starts.begin(), starts.end(), [&](size_t a, size_t b) { return low(a) < low(b); });
        std::sort(ends.begin(), ends.end(), [&](size_t a, size_t b) { return high(a) < high(b); });
        std::vector<size_t> order(m_Queries.size());
        std::iota(order.begin(), order.end(), size_t{0});
        std::sort(order.begin(), order.end(),
                  [this](size_t a, size_t b) { return m_Queries[a].m_At.m_X < m_Queries[b].m_At.m_X; });
        std::vector<int> answers(m_Queries.size(), -1);
        auto start = starts.begin();
        auto end = ends.begin();
        for (const size_t nQuery : order) {
            const double x = m_Queries[nQuery].m_At.m_X;
            for (; start != starts.end() && low(*start) <= x; ++start) {
                m_Open.insert({m_Areas[*start], *start});
            }
            for (; end != ends.end() && high(*end) < x; ++end) {
                m_Open.erase({m_Areas[*end], *end});
                m_Bands[*end].reset();
            }
            answers[nQuery] = Innermost(m_Queries[nQuery]);
        }
        return answers;
    }

private:
    [[nodiscard]] int Innermost(const SContainmentQuery& query) {
        for (auto ring = m_Open.upper_bound({query.m_Area, m_Rings.size()}); ring != m_Open.end(); ++ring) {
            const size_t i = ring->second;
            if (!m_Boxes[i].Contains(query.m_At)) {
                continue;
            }
            if (m_Bands[i] == nullptr) {
                m_Bands[i] = std::make_unique<CRingBands>(m_Rings[i]);
            }
            if (m_Bands[i]->Contains(query.m_At)) {
                return static_cast<int>(i);
            }
        }
        return -1;
    }

    std::span<const CRing> m_Rings;
    std::span<const SContainmentQuery> m_Queries;
    std::vector<SPlaneBox> m_Boxes;
    std::vector<double> m_Areas;
    std::vector<std::unique_ptr<CRingBands>> m_Bands;  ///< of those that were asked
    std::set<std::pair<double, size_t>> m_Open;        ///< areas and indices
};

}  // namespace

std::vector<int> InnermostAround(std::span<const CRing> rings, std::span<const SContainmentQuery> queries) {
    return CContainmentSweep(rings, queries).Answers();
}

double AreaOf(const CRing& ring) {
    double twice = 0.0;
    for (size_t i = 0; i + 1 < ring.size(); ++i) {
        twice += Cross(ring[i] - ring[0], ring[i + 1] - ring[0]);
    }
    return std::abs(twice) / 2.0;
}

SPoint InnerPointOf(const CRing& ring) {
    const SPlaneBox box = BoxOf(ring);
    // A height near the middle with no corner at it.
    const double middle = (box.m_Low.m_Y + box.m_High.m_Y) / 2.0;
    double below = box.m_Low.m_Y;
    double above = box.m_High.m_Y;
    for (const SPoint point : ring) {
        (point.m_Y <= middle ? below : above) =
            point.m_Y <= middle ? std::max(below, point.m_Y) : std::min(above, point.m_Y);
    }
    const double y = (below + above) / 2.0;
    std::vector<double> crossings;
    for (size_t i = 0; i < ring.size(); ++i) {
        const SPoint next = ring[(i + 1) % ring.size()];
        if (Crosses(ring[i], next, y)) {
            crossings.push_back(CrossingAt(ring[i], next, y));
        }
    }
    std::sort(crossings.begin(), crossings.end());
    SPoint best = ring.front();
    double width = 0.0;
    for (size_t i = 0; i + 1 < crossings.size(); i += 2) {
        if (crossings[i + 1] - crossings[i] > width) {
            width = crossings[i + 1] - crossings[i];
            best = {crossings[i] + width / 2.0, y};
        }
    }
    return best;
}

}  // namespace nestrix
