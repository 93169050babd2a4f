#pragma once

#include <cmath>
#include <cstddef>
#include <vector>

#include "nest/CLayout.h"
#include "nest/CPairWeights.h"
#include "nest/LeastDepths.h"

namespace nestrix {

/// A place for an item, and what its overlaps come to there.
struct SCandidate {
    SPlace m_Place;
    double m_Value = HUGE_VAL;  ///< the item's weighted overlap; no place was found where it is infinite
};

/// What the overlaps of one item with all others come to, by weight, wherever it is put.
///
/// Order of use: while there is a CScope, ask for its item.
class CItemOverlap {
public:
    CItemOverlap(CLayout& layout, const CPairWeights& weights);

    /// As long as it lives, the item is this one, and there is no other scope. Weights are to stay as they
    /// are meanwhile.
    class CScope {
    public:
        CScope(CItemOverlap& overlap, size_t nItem) : m_Overlap(overlap) { m_Overlap.Begin(nItem); }
        CScope(const CScope&) = delete;
        CScope& operator=(const CScope&) = delete;
        ~CScope() { m_Overlap.End(); }

    private:
        CItemOverlap& m_Overlap;
    };

    [[nodiscard]] CLayout& Layout() const { return m_Layout; }
    [[nodiscard]] size_t Item() const { return m_nItem; }
    [[nodiscard]] double SizeOfItem() const;  ///< the square root of its area
    [[nodiscard]] const std::vector<size_t>& VersionsOfItem() const;

    /// What an overlap with another item is multiplied with, for its weight and size.
    [[nodiscard]] double FactorOf(size_t nOther) const { return m_Factors[nOther]; }

    /// How much two items' overlap counts before any weight: large pieces are harder to find a place for.
    [[nodiscard]] double ScaleOf(size_t nItem, size_t nOther) const {
        return m_Scales[nItem] * m_Scales[nOther];
    }

    /// @param limit where the value is at least this, some number from here on to the exact one is returned.
    [[nodiscard]] double ValueAt(const SPlace& place, double limit) const;

    /// How deep a version of the item overlaps each of the others at least, wherever it is put. Holds as long
    /// as the fields do.
    void CollectLeastDepths(size_t nVersion, std::vector<SLeastDepths>& depths) const;

private:
    void Begin(size_t nItem);
    void End();

    CLayout& m_Layout;
    const CPairWeights& m_Weights;
    size_t m_nItem = 0;
    std::vector<double> m_Scales;   ///< of each item
    std::vector<double> m_Factors;  ///< scale and weight of each other item
};

}  // namespace nestrix
