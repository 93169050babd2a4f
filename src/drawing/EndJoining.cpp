#include "drawing/EndJoining.h"

#include <algorithm>
#include <numeric>
#include <tuple>

#include "drawing/CDisjointSets.h"
#include "drawing/CPointGrid.h"

namespace nestrix {

namespace {

/// Below this share of the drawing's extent, a distance is rounding.
constexpr double ROUNDING = 1e-12;

/// A line is not closed to a ring where its ends are not nearer to each other than this share of its length.
constexpr double RING_SHARE = 1.0 / 3.0;

struct SGap {
    double m_Width;
    SPoint m_Low;  ///< the end further to the left
    SPoint m_High;
    size_t m_nFirst;
    size_t m_nSecond;
};

/// By the places only: which line comes first in a file is of no matter.
bool IsNarrower(const SGap& a, const SGap& b) {
    return std::tie(a.m_Width, a.m_Low.m_X, a.m_Low.m_Y, a.m_High.m_X, a.m_High.m_Y) <
           std::tie(b.m_Width, b.m_Low.m_X, b.m_Low.m_Y, b.m_High.m_X, b.m_High.m_Y);
}

class CEndJoining {
public:
    CEndJoining(std::span<const SPoint> ends, std::span<const double> lengths)
        : m_Ends(ends),
          m_Nodes(ends.size()),
          m_Chains(lengths.size()),
          m_Lengths(lengths.begin(), lengths.end()) {}

    void JoinSamePoints(double distance) {
        std::vector<size_t> order(m_Ends.size());
        std::iota(order.begin(), order.end(), size_t{0});
        std::sort(order.begin(), order.end(),
                  [this](size_t a, size_t b) { return IsBefore(m_Ends[a], m_Ends[b]); });
        std::vector<SPoint> places;
        std::vector<size_t> atPlaces;
        for (size_t i = 0; i < order.size(); ++i) {
            if (i > 0 && m_Ends[order[i]] == m_Ends[order[i - 1]]) {
                Join(order[i], order[i - 1]);
            } else {
                places.push_back(m_Ends[order[i]]);
                atPlaces.push_back(order[i]);
            }
        }
        if (distance <= 0.0) {
            return;
        }
        const CPointGrid grid(places, distance);
        for (size_t i = 0; i < places.size(); ++i) {
            grid.VisitNear(places[i], [&](size_t k) {
                if (k > i && Length(places[i] - places[k]) <= distance) {
                    Join(atPlaces[i], atPlaces[k]);
                }
                return false;
            });
        }
    }

    /// Joins what is left over, nearest first.
    /// @param least nothing nearer than this is left over.
    void JoinNearest(double least, double tolerance) {
        // With a radius that doubles, all pairs within half of it have been joined already: so no end has
        // more than a few others within the radius.
        for (double radius = std::min(2.0 * least, tolerance); least < tolerance;
             radius = std::min(2.0 * radius, tolerance)) {
            JoinWithin(radius);
            if (radius == tolerance) {
                break;
            }
        }
    }

    [[nodiscard]] std::vector<size_t> Nodes() {
        std::vector<size_t> nodes(m_Ends.size());
        for (size_t i = 0; i < nodes.size(); ++i) {
            nodes[i] = m_Nodes.Find(i);
        }
        return nodes;
    }

private:
    void Join(size_t nFirst, size_t nSecond) {
        m_Nodes.Unite(nFirst, nSecond);
        const size_t nChain = m_Chains.Find(nFirst / 2);
        const size_t nOther = m_Chains.Find(nSecond / 2);
        if (nChain != nOther) {
            const double length = m_Lengths[nChain] + m_Lengths[nOther];
            m_Chains.Unite(nChain, nOther);
            m_Lengths[m_Chains.Find(nChain)] = length;
        }
    }

    [[nodiscard]] std::vector<size_t> LeftOver() {
        std::vector<size_t> counts(m_Ends.size());
        for (size_t i = 0; i < m_Ends.size(); ++i) {
            ++counts[m_Nodes.Find(i)];
        }
        std::vector<size_t> left;
        for (size_t i = 0; i < m_Ends.size(); ++i) {
            if (counts[m_Nodes.Find(i)] == 1) {
                left.push_back(i);
            }
        }
        return left;
    }

    void JoinWithin(double radius) {
        const std::vector<size_t> left = LeftOver();
        std::vector<SPoint> places;
        for (const size_t nEnd : left) {
            places.push_back(m_Ends[nEnd]);
        }
        const CPointGrid grid(places, radius);
        std::vector<SGap> gaps;
        for (size_t i = 0; i < left.size(); ++i) {
            grid.VisitNear(places[i], [&](size_t k) {
                const double width = Length(places[i] - places[k]);
                if (k > i && width <= radius) {
                    const bool bFirstLow = IsBefore(places[i], places[k]);
                    gaps.push_back({width, bFirstLow ? places[i] : places[k],
                                    bFirstLow ? places[k] : places[i], left[i], left[k]});
                }
                return false;
            });
        }
        std::sort(gaps.begin(), gaps.end(), IsNarrower);
        std::vector<bool> joined(m_Ends.size());
        for (const SGap& gap : gaps) {
            if (!joined[gap.m_nFirst] && !joined[gap.m_nSecond] && IsToClose(gap)) {
                Join(gap.m_nFirst, gap.m_nSecond);
                joined[gap.m_nFirst] = joined[gap.m_nSecond] = true;
            }
        }
    }

    [[nodiscard]] bool IsToClose(const SGap& gap) {
        const size_t nChain = m_Chains.Find(gap.m_nFirst / 2);
        return nChain != m_Chains.Find(gap.m_nSecond / 2) || gap.m_Width < RING_SHARE * m_Lengths[nChain];
    }

    std::span<const SPoint> m_Ends;
    CDisjointSets m_Nodes;
    CDisjointSets m_Chains;  ///< of lines
    std::vector<double> m_Lengths;
};

}  // namespace

std::vector<size_t> JoinEnds(std::span<const SPoint> ends, std::span<const double> lengths,
                             double tolerance) {
    SPlaneBox box;
    for (const SPoint end : ends) {
        box.Include(end);
    }
    const double extent = ends.empty() ? 0.0 : Length(box.m_High - box.m_Low);
    const double same = std::max(ROUNDING_OF_TOLERANCE * tolerance, ROUNDING * extent);
    CEndJoining joining(ends, lengths);
    joining.JoinSamePoints(same);
    joining.JoinNearest(same, tolerance);
    return joining.Nodes();
}

}  // namespace nestrix
