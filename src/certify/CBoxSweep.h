#pragma once

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>
#include <vector>

#include "certify/SGridBox.h"

namespace nestrix::certify {

/// Boxes with a number each, from which those are found that meet: in the order of their low ends along one
/// axis, so that a box is compared with those only that begin before it ends.
///
/// Order of use: Add all, then ask.
class CBoxSweep {
public:
    void Reserve(size_t nBoxes) { m_Boxes.reserve(nBoxes); }

    void Add(const SGridBox& box, int nIndex) {
        m_Boxes.push_back({{box.m_Low.m_nX, box.m_High.m_nX}, {box.m_Low.m_nY, box.m_High.m_nY}, nIndex});
    }

    /// Calls visit(i, j) once for each two boxes that share a point, until it returns true.
    /// @return whether it did.
    template <class TVisit>
    bool VisitPairs(TVisit&& visit) {
        Sort(IsUpright(m_Boxes, {}));
        for (size_t i = 0; i < m_Boxes.size(); ++i) {
            if (VisitFrom(i + 1, m_Boxes, m_Boxes[i], visit)) {
                return true;
            }
        }
        return false;
    }

    /// The same for pairs of a box of this sweep with one of another, in this order.
    template <class TVisit>
    bool VisitPairs(CBoxSweep& other, TVisit&& visit) {
        const bool bUpright = IsUpright(m_Boxes, other.m_Boxes);
        Sort(bUpright);
        other.Sort(bUpright);
        const auto visitSwapped = [&visit](int i, int j) { return visit(j, i); };
        size_t i = 0;
        size_t j = 0;
        while (i < m_Boxes.size() && j < other.m_Boxes.size()) {
            const bool bMine = m_Boxes[i].m_Along.m_nLow <= other.m_Boxes[j].m_Along.m_nLow;
            if (bMine ? VisitFrom(j, other.m_Boxes, m_Boxes[i], visit)
                      : VisitFrom(i, m_Boxes, other.m_Boxes[j], visitSwapped)) {
                return true;
            }
            ++(bMine ? i : j);
        }
        return false;
    }

private:
    struct SRange {
        int64_t m_nLow = 0;
        int64_t m_nHigh = 0;
    };
    struct SItem {
        SRange m_Along;  ///< x, unless the sweep is upright
        SRange m_Across;
        int m_nIndex = 0;
    };
    using CItems = std::vector<SItem>;

    /// The item with those of the rest that begin before it ends.
    template <class TVisit>
    static bool VisitFrom(size_t nFirst, const CItems& rest, const SItem& item, TVisit& visit) {
        for (size_t i = nFirst; i < rest.size() && rest[i].m_Along.m_nLow <= item.m_Along.m_nHigh; ++i) {
            if (rest[i].m_Across.m_nLow <= item.m_Across.m_nHigh &&
                item.m_Across.m_nLow <= rest[i].m_Across.m_nHigh && visit(item.m_nIndex, rest[i].m_nIndex)) {
                return true;
            }
        }
        return false;
    }

    /// How many boxes a line across the axis meets on average.
    static double Crowd(const CItems& first, const CItems& second, SRange SItem::*pAxis) {
        double sum = 0.0;
        SRange whole{std::numeric_limits<int64_t>::max(), std::numeric_limits<int64_t>::min()};
        for (const CItems* pItems : {&first, &second}) {
            for (const SItem& item : *pItems) {
                const SRange& range = item.*pAxis;
                sum += static_cast<double>(range.m_nHigh - range.m_nLow);
                whole = {std::min(whole.m_nLow, range.m_nLow), std::max(whole.m_nHigh, range.m_nHigh)};
            }
        }
        return sum / (static_cast<double>(whole.m_nHigh) - static_cast<double>(whole.m_nLow) + 1.0);
    }

    static bool IsUpright(const CItems& first, const CItems& second) {
        return Crowd(first, second, &SItem::m_Across) < Crowd(first, second, &SItem::m_Along);
    }

    void Sort(bool bUpright) {
        if (bUpright) {
            for (SItem& item : m_Boxes) {
                std::swap(item.m_Along, item.m_Across);
            }
        }
        std::sort(m_Boxes.begin(), m_Boxes.end(), [](const SItem& a, const SItem& b) {
            return a.m_Along.m_nLow != b.m_Along.m_nLow ? a.m_Along.m_nLow < b.m_Along.m_nLow
                                                        : a.m_nIndex < b.m_nIndex;
        });
    }

    CItems m_Boxes;
};

}  // namespace nestrix::certify
