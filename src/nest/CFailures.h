#pragma once

#include <cstddef>
#include <vector>

#include "nest/CRandom.h"
#include "nest/Places.h"

namespace nestrix {

/// A layout whose items still overlap: what is left of an attempt that found no packing.
struct SFailure {
    double m_Overlap = 0.0;  ///< the sum of all overlaps
    std::vector<SPlace> m_Places;
};

/// The failures of a search that overlap least.
class CFailures {
public:
    /// @param nMost so many are kept.
    explicit CFailures(size_t nMost) : m_nMost(nMost) {}

    [[nodiscard]] bool IsEmpty() const { return m_Failures.empty(); }
    void Clear() { m_Failures.clear(); }
    void Keep(SFailure failure);

    /// One at random, of those there must be: half of all draws give one of the first fifth by overlap, nine
    /// in ten one of the first three fifths.
    [[nodiscard]] const SFailure& Draw(CRandom& random) const;

private:
    size_t m_nMost;
    std::vector<SFailure> m_Failures;  ///< the one that overlaps least first
};

}  // namespace nestrix
