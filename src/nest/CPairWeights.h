#pragma once

#include <cstdint>
#include <span>
#include <vector>

namespace nestrix {

/// Two items that overlap, the first less than the second, and how much they do.
struct SOverlap {
    uint32_t m_nFirst = 0;
    uint32_t m_nSecond = 0;
    double m_Measure = 0.0;
};

/// How much the overlap of each two items counts: 1 at first. What stays in the way counts more and more, so
/// that the search leaves local minima: guided local search (Voudouris and Tsang 1999; for packing Egeblad,
/// Nielsen and Odgaard 2007). Only weights above 1 take memory.
class CPairWeights {
public:
    explicit CPairWeights(size_t nItems) : m_Rows(nItems) {}

    /// All weights are 1 again.
    void Reset();

    /// After a pass: the weights of the pairs that overlap grow, most where they overlap most; all others
    /// decay.
    void Update(std::span<const SOverlap> overlaps);

    /// One weight above 1 in an item's row.
    struct SWeight {
        uint32_t m_nOther;
        bool m_bGrown;  ///< within the update going on
        double m_Weight;
    };
    [[nodiscard]] std::span<const SWeight> RowOf(size_t nItem) const { return m_Rows[nItem]; }

private:
    void Grow(size_t nItem, uint32_t nOther, double factor);
    void DecayOthers();
    void ScaleDown();

    std::vector<std::vector<SWeight>> m_Rows;
    double m_Largest = 1.0;
};

}  // namespace nestrix
