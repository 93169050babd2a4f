#pragma once

#include <array>
#include <functional>
#include <vector>

#include "nest/CDisturber.h"
#include "nest/CPackingFinder.h"
#include "nest/CRandom.h"
#include "nest/CStepCounter.h"
#include "nest/Places.h"

namespace nestrix {

/// Walks from packing to packing: disturbs the present one, looks for a packing a little lower than it, and
/// goes on from what it finds, unless that is much higher. A walk ends when nothing better than the best has
/// been found for long.
///
/// There are two manners of walking, since neither is good for all pieces: many hasty attempts, for most of
/// the steps; and a few patient ones, from packings that may be farther from the best.
class CWalker {
public:
    /// @param nFirst the manner to begin with, from 0: workers begin with different ones.
    CWalker(const CPackProblem& problem, CPackingFinder& finder, CStepCounter& steps, CRandom& random,
            size_t nFirst);

    /// One walk.
    /// @param best where it begins.
    /// @param take is given each packing that is found; whether it is the best.
    void Walk(const SSolution& best, const std::function<bool(const SSolution&)>& take);

private:
    struct SManner;
    static const std::array<SManner, 2> MANNERS;

    [[nodiscard]] double DrawStep();
    [[nodiscard]] size_t NextManner() const;
    [[nodiscard]] bool GoesOnFrom(const SManner& manner, const SSolution& present, const SSolution& found);

    CPackingFinder& m_Finder;
    CStepCounter& m_Steps;
    CRandom& m_Random;
    CDisturber m_Disturber;
    double m_Rise;        ///< how much higher, as a share, a packing may be to go on from
    double m_LearntRise;  ///< the same, learnt from how often that was so
    size_t m_nFirst;
    std::array<uint64_t, 2> m_StepsOf{};  ///< taken in each manner
};

}  // namespace nestrix
