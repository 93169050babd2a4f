#pragma once

#include <vector>

#include "nest/CPackProblem.h"
#include "nest/CRandom.h"
#include "nest/Places.h"

namespace nestrix {

/// Disturbs packings a little, so that a search from there finds others. In equal parts: two large items
/// change places, wherever they lie; two of any size do that are near each other; or one item goes to about
/// where another lies, in any of its main versions.
class CDisturber {
public:
    CDisturber(const CPackProblem& problem, CRandom& random);

    /// @return the places with one such change, or as they were where there is none: one item alone stays.
    [[nodiscard]] std::vector<SPlace> Disturbed(std::vector<SPlace> places);

private:
    void ExchangeLarge(std::vector<SPlace>& places);
    void ExchangeNear(std::vector<SPlace>& places);
    void MoveToAnother(std::vector<SPlace>& places);

    const CPackProblem& m_Problem;
    CRandom& m_Random;
    std::vector<size_t> m_LargeFirst;  ///< the items by area
    double m_ItemSize;                 ///< the side of a square as large as the average item
};

}  // namespace nestrix
