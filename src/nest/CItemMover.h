#pragma once

#include "nest/CItemOverlap.h"
#include "nest/CPlaceRefiner.h"
#include "nest/CPlaceSampler.h"
#include "nest/CRandom.h"

namespace nestrix {

/// Moves single items of a layout to where they overlap least, by weight. One move tries many places; the
/// best of them, and the present place, are then refined.
class CItemMover {
public:
    CItemMover(CLayout& layout, const CPairWeights& weights, CRandom& random);

    /// @return whether the item overlapped anything and has been moved.
    bool Move(size_t nItem);

    /// How much two items' overlap counts before any weight.
    [[nodiscard]] double ScaleOf(size_t nItem, size_t nOther) const {
        return m_Overlap.ScaleOf(nItem, nOther);
    }

private:
    [[nodiscard]] SCandidate FindPlace(const SCandidate& present);

    CLayout& m_Layout;
    CRandom& m_Random;
    CItemOverlap m_Overlap;
    CPlaceSampler m_Sampler;
    CPlaceRefiner m_Refiner;
};

}  // namespace nestrix
