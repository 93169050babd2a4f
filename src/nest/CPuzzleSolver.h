#pragma once

#include <cstddef>
#include <functional>

#include "nest/CPackingFinder.h"

namespace nestrix {

/// Tries to put the pieces together like those of a puzzle: lays them by their corners, by exact drawings and
/// by coarse ones, and with more layouts side by side where nearly all of them have filled their corners.
class CPuzzleSolver {
public:
    /// Takes a packing that is valid, but not necessarily lower than others.
    using CTake = std::function<void(const SSolution& packing)>;

    CPuzzleSolver(const CPackProblem& problem, CFieldTable& fields, CPackingFinder& finder,
                  CStepCounter& steps, CTake take);

    /// Does nothing with pieces unlike those of a puzzle, nor without steps.
    void Solve();

private:
    double Fit(size_t nLayouts, double tolerance);
    void TakeLifted(const SSolution& layout) const;

    const CPackProblem& m_Problem;
    CFieldTable& m_Fields;
    CPackingFinder& m_Finder;
    CStepCounter& m_Steps;
    CTake m_Take;
};

}  // namespace nestrix
