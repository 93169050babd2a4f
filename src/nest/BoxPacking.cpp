#include "nest/BoxPacking.h"

#include <algorithm>
#include <limits>
#include <optional>

namespace nestrix {

namespace {

/// The tops of what is placed, from the left wall to the right one.
class CSkyline {
public:
    CSkyline(int64_t nWidth, int64_t nFloor) : m_nWidth(nWidth), m_Steps{{0, nFloor}} {}

    struct SSpot {
        int64_t m_nX;
        int64_t m_nY;
    };

    /// The lowest place for a box of this width, the leftmost of several.
    [[nodiscard]] SSpot FindLowest(int64_t nWidth) const {
        SSpot best{0, std::numeric_limits<int64_t>::max()};
        for (size_t i = 0; i < m_Steps.size() && m_Steps[i].m_nX + nWidth <= m_nWidth; ++i) {
            int64_t nY = m_Steps[i].m_nY;
            for (size_t k = i + 1; k < m_Steps.size() && m_Steps[k].m_nX < m_Steps[i].m_nX + nWidth; ++k) {
                nY = std::max(nY, m_Steps[k].m_nY);
            }
            if (nY < best.m_nY) {
                best = {m_Steps[i].m_nX, nY};
            }
        }
        return best;
    }

    void Cover(int64_t nX, int64_t nWidth, int64_t nTop) {
        const int64_t nEnd = nX + nWidth;
        std::vector<SSpot> steps;
        int64_t nLast = 0;  // the height on which the box ends
        for (const SSpot& step : m_Steps) {
            if (step.m_nX <= nEnd) {
                nLast = step.m_nY;
            }
            if (step.m_nX < nX) {
                steps.push_back(step);
            }
        }
        steps.push_back({nX, nTop});
        if (nEnd < m_nWidth) {
            steps.push_back({nEnd, nLast});
        }
        for (const SSpot& step : m_Steps) {
            if (step.m_nX > nEnd) {
                steps.push_back(step);
            }
        }
        m_Steps = std::move(steps);
    }

private:
    int64_t m_nWidth;
    std::vector<SSpot> m_Steps;  ///< where each begins, and how high it is
};

}  // namespace

std::vector<SFreePlacement> PackBoxes(const CPackProblem& problem, const std::vector<size_t>& items,
                                      int64_t nFloor) {
    const SGridStrip& strip = problem.Strip();
    const auto heightOf = [&problem](size_t nItem) {
        int64_t nHeight = std::numeric_limits<int64_t>::max();
        for (const size_t nVersion : problem.MainVersionsOf(problem.Items()[nItem])) {
            nHeight = std::min(nHeight, problem.Versions()[nVersion].m_Box.Height());
        }
        return nHeight;
    };
    std::vector<size_t> order(items.size());
    for (size_t i = 0; i < order.size(); ++i) {
        order[i] = i;
    }
    std::stable_sort(order.begin(), order.end(),
                     [&](size_t a, size_t b) { return heightOf(items[a]) > heightOf(items[b]); });
    std::vector<SFreePlacement> placed(items.size());
    // The spacing goes with each box, to the right and above: the last one's may stand over the wall.
    CSkyline skyline(strip.m_nWidth - 2 * strip.m_nMargin + strip.m_nSpacing, nFloor);
    for (const size_t i : order) {
        int64_t nBestTop = std::numeric_limits<int64_t>::max();
        size_t nBest = 0;
        SGridPoint corner;
        for (const size_t nVersion : problem.MainVersionsOf(problem.Items()[items[i]])) {
            const SGridBox& box = problem.Versions()[nVersion].m_Box;
            const auto spot = skyline.FindLowest(box.Width() + strip.m_nSpacing);
            if (spot.m_nY + box.Height() < nBestTop) {
                nBestTop = spot.m_nY + box.Height();
                nBest = nVersion;
                corner = {spot.m_nX, spot.m_nY};
            }
        }
        const SGridBox& box = problem.Versions()[nBest].m_Box;
        skyline.Cover(corner.m_nX, box.Width() + strip.m_nSpacing, nBestTop + strip.m_nSpacing);
        placed[i] = problem.PlacementOf(items[i], nBest, corner + SGridPoint{strip.m_nMargin, 0} - box.m_Low);
    }
    return placed;
}

}  // namespace nestrix
