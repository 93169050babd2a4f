#pragma once

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

#include "packing/PointVectors.h"

namespace nestrix {

/// Points in square cells, from which those near another point are found.
class CPointGrid {
public:
    /// @param points finite, and no farther apart than 1e15 cells.
    CPointGrid(std::span<const SPoint> points, double cell) : m_Cell(cell) {
        SPlaneBox box;
        for (const SPoint point : points) {
            box.Include(point);
        }
        m_Low = box.m_Low;
        m_Items.reserve(points.size());
        for (size_t i = 0; i < points.size(); ++i) {
            m_Items.push_back({CellOf(points[i]), i});
        }
        std::sort(m_Items.begin(), m_Items.end(), IsBefore);
    }

    /// Calls visit(index) for each point nearer than a cell is wide, and for some that are farther, until it
    /// returns true.
    /// @return whether it did.
    template <class TVisit>
    bool VisitNear(SPoint point, TVisit&& visit) const {
        const SCell cell = CellOf(point);
        for (int64_t nX = cell.m_nX - 1; nX <= cell.m_nX + 1; ++nX) {
            auto item =
                std::lower_bound(m_Items.begin(), m_Items.end(), SItem{{nX, cell.m_nY - 1}, 0}, IsBefore);
            for (; item != m_Items.end() && item->m_Cell.m_nX == nX && item->m_Cell.m_nY <= cell.m_nY + 1;
                 ++item) {
                if (visit(item->m_nIndex)) {
                    return true;
                }
            }
        }
        return false;
    }

private:
    struct SCell {
        int64_t m_nX;
        int64_t m_nY;
    };
    struct SItem {
        SCell m_Cell;
        size_t m_nIndex;
    };

    static bool IsBefore(const SItem& a, const SItem& b) {
        return a.m_Cell.m_nX != b.m_Cell.m_nX   ? a.m_Cell.m_nX < b.m_Cell.m_nX
               : a.m_Cell.m_nY != b.m_Cell.m_nY ? a.m_Cell.m_nY < b.m_Cell.m_nY
                                                : a.m_nIndex < b.m_nIndex;
    }

    [[nodiscard]] SCell CellOf(SPoint point) const {
        return {static_cast<int64_t>(std::floor((point.m_X - m_Low.m_X) / m_Cell)),
                static_cast<int64_t>(std::floor((point.m_Y - m_Low.m_Y) / m_Cell))};
    }

    double m_Cell;
    SPoint m_Low;
    std::vector<SItem> m_Items;
};

}  // namespace nestrix
