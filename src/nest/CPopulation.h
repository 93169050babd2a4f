#pragma once

#include <cstddef>
#include <utility>
#include <vector>

#include "nest/CRandom.h"
#include "nest/Places.h"

namespace nestrix {

/// The lowest packings of different runs. Those of the same height are taken for the same.
class CPopulation {
public:
    /// @param nMost how many are kept.
    explicit CPopulation(size_t nMost) : m_nMost(nMost) {}

    /// Takes a packing in, unless it is known, or all are lower. Where there is no room, the highest goes.
    void Enter(const SSolution& packing);

    [[nodiscard]] size_t Count() const { return m_Packings.size(); }

    /// Two of them, each as likely as the others. There must be two.
    [[nodiscard]] std::pair<const SSolution&, const SSolution&> DrawTwo(CRandom& random) const;

private:
    size_t m_nMost;
    std::vector<SSolution> m_Packings;
};

}  // namespace nestrix
