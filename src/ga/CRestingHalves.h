#pragma once

#include <cstddef>
#include <vector>

#include "Sweep.h"

/// The upper profiles of the polygons placed in the strip, one behind the other. The memory is kept from one
/// layout to the next.
class CRestingHalves {
public:
    /// Where a half lies in the storage, and its bounds in the strip.
    struct SPlace {
        size_t m_nFirst;
        float m_fLow;
        float m_fHigh;
    };

    void Clear() { m_nUsed = 0; }

    SPlace Append(const SHalfProfile& half, float fX, float fY);

    /// Valid until the next Append or Clear.
    [[nodiscard]] SMovedHalf At(const SPlace& place, const SHalfProfile& half) const {
        const float* const pX = m_Values.data() + place.m_nFirst;
        return {&half, pX, pX + half.CountX(), place.m_fLow, place.m_fHigh};
    }

private:
    size_t m_nUsed = 0;
    std::vector<float> m_Values;  ///< never shrinks
};

/// Writes the half's block of x, moved by fX, to pMoved.
void MoveX(const SHalfProfile& half, float fX, float* pMoved);
