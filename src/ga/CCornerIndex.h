#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

/// Finds the upper corners of placed polygons at exactly a given x: those that stop a vertical side above
/// them at any height. A hash table with chaining; the slots carry the layout's number, so that a new layout
/// need not clear them.
class CCornerIndex {
public:
    struct SCorner {
        float m_fX;
        float m_fY;
        int m_nDrop;
        int m_nNext;  ///< the next corner in the same slot, or −1
    };

    /// Makes room for nCorners at once.
    void Reset(size_t nCorners) {
        m_Slots.assign(std::bit_ceil(2 * nCorners + 1), {});
        m_Corners.clear();
        m_Corners.reserve(nCorners);
        m_nLayout = 1;
    }

    void Clear() {
        m_Corners.clear();
        ++m_nLayout;
    }

    void Insert(float fX, float fY, int nDrop) {
        SSlot& slot = m_Slots[SlotOf(fX)];
        if (slot.m_nLayout != m_nLayout) {
            slot = {m_nLayout, -1};
        }
        m_Corners.push_back({fX, fY, nDrop, slot.m_nFirst});
        slot.m_nFirst = static_cast<int>(m_Corners.size()) - 1;
    }

    /// Whether `test(corner)` holds for any corner at x.
    template <class TTest>
    [[nodiscard]] bool AnyAt(float fX, const TTest& test) const {
        const SSlot& slot = m_Slots[SlotOf(fX)];
        if (slot.m_nLayout != m_nLayout) {
            return false;
        }
        for (int nCorner = slot.m_nFirst; nCorner >= 0;) {
            const SCorner& corner = m_Corners[static_cast<size_t>(nCorner)];
            if (corner.m_fX == fX && test(corner)) {
                return true;
            }
            nCorner = corner.m_nNext;
        }
        return false;
    }

private:
    struct SSlot {
        uint64_t m_nLayout = 0;
        int m_nFirst = -1;
    };

    [[nodiscard]] size_t SlotOf(float fX) const {
        // Adding 0 turns −0 into 0, which compares equal to it.
        const uint32_t nBits = std::bit_cast<uint32_t>(fX + 0.0F);
        // Fibonacci hashing (Knuth, The Art of Computer Programming, vol. 3, 6.4).
        return ((nBits * 0x9E3779B97F4A7C15ULL) >> 32) & (m_Slots.size() - 1);
    }

    std::vector<SSlot> m_Slots;
    std::vector<SCorner> m_Corners;
    uint64_t m_nLayout = 1;
};
