#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "nest/CCornerFitter.h"
#include "nest/CPackingFinder.h"

namespace nestrix {

/// Tries to put the pieces together like those of a puzzle: lays them by their corners, by exact drawings and
/// by coarse ones, and with more layouts side by side where nearly all of them have filled their corners.
/// Such pieces may still find to no full packing, as rectangles and letters seldom do, whose corners all fit
/// each other: these are laid again and again below a height that they have to keep to.
class CPuzzleSolver {
public:
    /// Takes a packing that is valid, but not necessarily lower than others.
    using CTake = std::function<void(const SSolution& packing)>;

    CPuzzleSolver(const CPackProblem& problem, CFieldTable& fields, CPackingFinder& finder,
                  CStepCounter& steps, CTake take);

    /// Does nothing with pieces unlike those of a puzzle, nor without steps.
    void Solve();

    /// Whether the pieces have turned out to be like those of a puzzle.
    [[nodiscard]] bool IsPuzzleLikely() const { return m_bLikely; }

    /// Looks for lower packings of likely pieces, by more layouts than the last time.
    /// @param height of the best packing.
    void Lower(double height);

    /// How many steps all this has taken.
    [[nodiscard]] uint64_t Steps() const { return m_nSteps; }

private:
    [[nodiscard]] std::optional<CCornerFitter::SFit> Fit(size_t nLayouts, double tolerance, double height);
    void Offer(const CCornerFitter::SFit& fit);
    void PressIn(const CCornerFitter::SFit& fit, double height);
    void TakeLifted(const SSolution& layout) const;

    const CPackProblem& m_Problem;
    CFieldTable& m_Fields;
    CPackingFinder& m_Finder;
    CStepCounter& m_Steps;
    CTake m_Take;
    bool m_bLikely = false;
    size_t m_nLayouts;  ///< of the next Lower
    uint64_t m_nSteps = 0;
};

}  // namespace nestrix
