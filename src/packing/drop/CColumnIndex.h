#pragma once

#include <algorithm>
#include <cstddef>
#include <vector>

namespace nestrix {

/// Finds what lies in an x range of the strip, highest first. The strip is cut into columns of equal width;
/// each keeps the placed polygons that reach into it, sorted by height. New polygons usually lie on
/// top, so insertion is cheap, and a drop looks at little more than the skyline below it.
class CColumnIndex {
public:
    /// A polygon at rest in a column.
    struct SEntry {
        float m_fHigh;  ///< nothing of the polygon's upper profile lies higher
        int m_nDrop;
    };

    /// Columns over x from 0 to fWidth, the outer two reaching to infinity; each holds up to nCapacity.
    void Reset(float fWidth, size_t nColumns, size_t nCapacity) {
        m_Entries.resize(nColumns * nCapacity);
        m_Counts.assign(nColumns, 0);
        m_nCapacity = nCapacity;
        m_fColumnsPerUnit = static_cast<float>(nColumns) / fWidth;
    }

    void Clear() { std::fill(m_Counts.begin(), m_Counts.end(), 0); }

    /// Enters a polygon in every column that [fLeft, fRight] touches; the two may come in either order.
    void Insert(float fLeft, float fRight, SEntry entry) {
        const SColumns columns = ColumnsOf(fLeft, fRight);
        for (size_t nColumn = columns.m_nFirst; nColumn <= columns.m_nLast; ++nColumn) {
            SEntry* const pColumn = m_Entries.data() + nColumn * m_nCapacity;
            size_t nPlace = m_Counts[nColumn]++;
            for (; nPlace > 0 && pColumn[nPlace - 1].m_fHigh > entry.m_fHigh; --nPlace) {
                pColumn[nPlace] = pColumn[nPlace - 1];
            }
            pColumn[nPlace] = entry;
        }
    }

    /// Calls `visit(entry)` for the entries of each column that the range touches, highest first,
    /// until it returns false: then goes on with the next column. Polygons in several columns come several
    /// times.
    template <class TVisit>
    void Visit(float fLeft, float fRight, const TVisit& visit) const {
        const SColumns columns = ColumnsOf(fLeft, fRight);
        for (size_t nColumn = columns.m_nFirst; nColumn <= columns.m_nLast; ++nColumn) {
            const SEntry* const pColumn = m_Entries.data() + nColumn * m_nCapacity;
            for (size_t nEntry = m_Counts[nColumn]; nEntry > 0; --nEntry) {
                if (!visit(pColumn[nEntry - 1])) {
                    break;
                }
            }
        }
    }

private:
    struct SColumns {
        size_t m_nFirst;
        size_t m_nLast;
    };

    /// Monotonic, so that ranges with a common point have a common column.
    [[nodiscard]] size_t ColumnOf(float fX) const {
        const float fLast = static_cast<float>(m_Counts.size() - 1);
        return static_cast<size_t>(std::clamp(fX * m_fColumnsPerUnit, 0.0F, fLast));
    }

    [[nodiscard]] SColumns ColumnsOf(float fLeft, float fRight) const {
        return {ColumnOf(std::min(fLeft, fRight)), ColumnOf(std::max(fLeft, fRight))};
    }

    float m_fColumnsPerUnit = 0.0F;
    size_t m_nCapacity = 0;
    std::vector<size_t> m_Counts;   ///< entries per column
    std::vector<SEntry> m_Entries;  ///< m_nCapacity places per column, lowest first
};

}  // namespace nestrix
