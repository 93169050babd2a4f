#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>

#include "packing/drop/CProfileSet.h"

namespace nestrix {

/// One axis of a grid: a range cut into cells of equal size, the outer two reaching to infinity.
class CGridAxis {
public:
    CGridAxis() = default;
    CGridAxis(SRange range, size_t nCells)
        : m_fLow(range.m_fLow),
          m_fCellsPerUnit(static_cast<float>(nCells) / (range.m_fHigh - range.m_fLow)),
          m_fLast(static_cast<float>(nCells - 1)) {
        if (!(m_fCellsPerUnit > 0.0F && std::isfinite(m_fCellsPerUnit))) {
            *this = {};  // too narrow, or too wide, to be cut
        }
    }

    /// Neighbouring cells, the last one included.
    struct SCells {
        size_t m_nFirst;
        size_t m_nLast;

        [[nodiscard]] size_t Count() const { return m_nLast - m_nFirst + 1; }
    };

    [[nodiscard]] size_t CountCells() const { return static_cast<size_t>(m_fLast) + 1; }

    /// That of what is not a number is the first. Monotonic, so that ranges with a common place have a common
    /// cell.
    [[nodiscard]] size_t CellOf(float fPlace) const {
        const float fCell = (fPlace - m_fLow) * m_fCellsPerUnit;
        return static_cast<uint32_t>(static_cast<int32_t>(std::min(std::max(0.0F, fCell), m_fLast)));
    }

    [[nodiscard]] SCells CellsOf(const SRange& range) const {
        return {CellOf(range.m_fLow), CellOf(range.m_fHigh)};
    }

private:
    float m_fLow = 0.0F;
    float m_fCellsPerUnit = 0.0F;
    float m_fLast = 0.0F;
};

}  // namespace nestrix
