#pragma once

#include <algorithm>
#include <limits>
#include <vector>

#include "certify/CRangeSweep.h"
#include "certify/SGridBox.h"

namespace nestrix::certify {

/// Boxes with a number each, from which those are found that meet: along the axis that leaves the fewest side
/// by side.
///
/// Order of use: Add all, then ask.
class CBoxSweep {
public:
    void Reserve(size_t nBoxes) { m_Boxes.reserve(nBoxes); }

    void Add(const SGridBox& box, int nIndex) { m_Boxes.push_back({box, nIndex}); }

    /// Calls visit(i, j) once for each two boxes that share a point, until it returns true.
    /// @return whether it did.
    template <class TVisit>
    bool VisitPairs(TVisit&& visit) const {
        const bool bUpright = CrowdAlong(&SGridPoint::m_nY) < CrowdAlong(&SGridPoint::m_nX);
        CRangeSweep sweep;
        sweep.Reserve(m_Boxes.size());
        for (const SItem& item : m_Boxes) {
            const SRange x = RangeOf(item.m_Box, &SGridPoint::m_nX);
            const SRange y = RangeOf(item.m_Box, &SGridPoint::m_nY);
            sweep.Add(bUpright ? y : x, bUpright ? x : y, item.m_nIndex);
        }
        return sweep.VisitPairs(visit);
    }

private:
    struct SItem {
        SGridBox m_Box;
        int m_nIndex = 0;
    };

    static SRange RangeOf(const SGridBox& box, int64_t SGridPoint::*pAxis) {
        return {box.m_Low.*pAxis, box.m_High.*pAxis};
    }

    /// How many boxes a line across the axis meets on average.
    [[nodiscard]] double CrowdAlong(int64_t SGridPoint::*pAxis) const {
        double sum = 0.0;
        SRange whole{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()};
        for (const SItem& item : m_Boxes) {
            const SRange range = RangeOf(item.m_Box, pAxis);
            sum += static_cast<double>(range.m_nHigh - range.m_nLow);
            whole = {std::min(whole.m_nLow, range.m_nLow), std::max(whole.m_nHigh, range.m_nHigh)};
        }
        return sum / (static_cast<double>(whole.m_nHigh) - static_cast<double>(whole.m_nLow) + 1.0);
    }

    std::vector<SItem> m_Boxes;
};

}  // namespace nestrix::certify
