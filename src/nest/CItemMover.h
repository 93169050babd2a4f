#pragma once

#include <span>
#include <vector>

#include "nest/CHingeModel.h"
#include "nest/CLayout.h"
#include "nest/CPairWeights.h"
#include "nest/CRandom.h"

namespace nestrix {

/// Moves single items of a layout to where they overlap least, by weight. One move tries places all over the
/// strip, places around the present one and places at which the item touches another, in any version; the
/// best of them, and the present place, are then refined.
class CItemMover {
public:
    CItemMover(CLayout& layout, const CPairWeights& weights, CRandom& random);

    /// @return whether the item overlapped anything and has been moved.
    bool Move(size_t nItem);

    /// How much two items' overlap counts before any weight: large pieces are harder to find a place for.
    [[nodiscard]] double ScaleOf(size_t nItem, size_t nOther) const {
        return m_Scales[nItem] * m_Scales[nOther];
    }

private:
    struct SCandidate {
        SPlace m_Place;
        double m_Value = HUGE_VAL;  ///< its weighted overlap, or at least so much
    };

    void LoadFactors(size_t nItem);
    void UnloadFactors(size_t nItem);
    [[nodiscard]] double ValueAt(size_t nItem, const SPlace& place, double limit) const;
    void TryPlaces(size_t nItem, SCandidate& best);
    void Try(size_t nItem, const SPlace& place, SCandidate& best) const;
    [[nodiscard]] size_t AnyVersionOf(size_t nItem);

    void Refine(size_t nItem, SCandidate& candidate);
    void Descend(size_t nItem, SCandidate& candidate, double size);
    void Polish(size_t nItem, SCandidate& candidate, double reach);
    double GatherHinges(size_t nItem, const SPlace& place);

    CLayout& m_Layout;
    const CPairWeights& m_Weights;
    CRandom& m_Random;
    std::vector<double> m_Scales;   ///< of each item
    std::vector<double> m_Factors;  ///< scale and weight of each other item, for the item being moved
    std::vector<CHingeModel::SHinge> m_Hinges;
};

}  // namespace nestrix
