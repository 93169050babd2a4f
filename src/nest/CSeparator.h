#pragma once

#include <functional>
#include <vector>

#include "nest/CItemMover.h"
#include "nest/CLayout.h"
#include "nest/CPairWeights.h"
#include "nest/CRandom.h"
#include "nest/CStepCounter.h"

namespace nestrix {

/// When a separation is given up.
struct SPatience {
    int m_nPasses = 200;  ///< so many passes in a row without clear progress are a strike
    int m_nStrikes = 3;
};

/// Moves the items of a layout until none overlap: passes over all that do, with weights that grow where
/// overlaps stay.
class CSeparator {
public:
    CSeparator(CLayout& layout, CRandom& random, CStepCounter& steps);

    /// @param improved called with each layout that overlaps less than all before it; true ends the
    /// separation.
    /// @return whether nothing overlaps any more, or `improved` was content. If not, the layout is the one
    /// with
    ///         the least overlap found.
    bool Separate(const SPatience& patience, const std::function<bool(double)>& improved);

    /// The sum of all overlaps, by scale but not by weight.
    [[nodiscard]] double MeasureOverlap();

private:
    enum class EOutcome { SEPARATED, STUCK, OVER };

    EOutcome Strike(const SPatience& patience, const std::function<bool(double)>& improved);
    bool MoveOverlapping();

    CLayout& m_Layout;
    CRandom& m_Random;
    CStepCounter& m_Steps;
    CPairWeights m_Weights;
    CItemMover m_Mover;
    std::vector<SOverlap> m_Overlaps;
    std::vector<size_t> m_Overlapping;  ///< items
    double m_Least = 0.0;               ///< overlap of m_Best
    std::vector<SPlace> m_Best;
};

}  // namespace nestrix
