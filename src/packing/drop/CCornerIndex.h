#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace nestrix {

/// Finds the upper corners of placed polygons at exactly a given x: those that stop a vertical side above
/// them at any height. A hash table with chaining. Corners are numbered through all layouts, so numbers of
/// earlier ones are known by their size, and a new layout need not clear the slots.
class CCornerIndex {
public:
    /// A corner of a polygon at rest.
    struct SCorner {
        float m_fX;
        float m_fY;
        int m_nDrop;
        int m_nNext;  ///< the next corner in the same slot, or −1
    };

    /// Prepares for about nCorners in a layout; there may be more.
    void Reset(size_t nCorners) {
        m_Slots.assign(std::bit_ceil(2 * nCorners + 1), -1);
        m_Corners.resize(nCorners);
        m_nCorners = 0;
        m_nFirstNumber = 0;
    }

    void Clear() {
        m_nFirstNumber += static_cast<int64_t>(m_nCorners);
        m_nCorners = 0;
    }

    /// Makes room for nMore calls of Insert.
    void MakeRoom(size_t nMore) {
        if (m_nCorners + nMore > m_Corners.size()) {
            m_Corners.resize(2 * (m_nCorners + nMore));
        }
    }

    void Insert(float fX, float fY, int nDrop) {
        int64_t& nSlot = m_Slots[SlotOf(fX)];
        m_Corners[m_nCorners] = {fX, fY, nDrop, InThisLayout(nSlot)};
        nSlot = m_nFirstNumber + static_cast<int64_t>(m_nCorners);
        ++m_nCorners;
    }

    /// Whether `test(corner)` holds for any corner at x.
    template <class TTest>
    [[nodiscard]] bool AnyAt(float fX, const TTest& test) const {
        for (int nCorner = InThisLayout(m_Slots[SlotOf(fX)]); nCorner >= 0;) {
            const SCorner& corner = m_Corners[static_cast<size_t>(nCorner)];
            if (corner.m_fX == fX && test(corner)) {
                return true;
            }
            nCorner = corner.m_nNext;
        }
        return false;
    }

private:
    /// The place of a corner with this number, or −1 if it belongs to an earlier layout.
    [[nodiscard]] int InThisLayout(int64_t nNumber) const {
        return static_cast<int>(std::max(nNumber - m_nFirstNumber, int64_t{-1}));
    }

    [[nodiscard]] size_t SlotOf(float fX) const {
        // Adding 0 turns −0 into 0, which compares equal to it.
        const uint32_t nBits = std::bit_cast<uint32_t>(fX + 0.0F);
        // After Fibonacci hashing (Knuth, The Art of Computer Programming, vol. 3, 6.4).
        return ((nBits * 0x9E3779B97F4A7C15ULL) >> 32) & (m_Slots.size() - 1);
    }

    std::vector<int64_t> m_Slots;  ///< the number of the latest corner in each
    std::vector<SCorner> m_Corners;
    size_t m_nCorners = 0;       ///< in this layout
    int64_t m_nFirstNumber = 0;  ///< of this layout
};

}  // namespace nestrix
