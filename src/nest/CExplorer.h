#pragma once

#include <functional>

#include "nest/CDisturber.h"
#include "nest/CFailures.h"
#include "nest/CPackingFinder.h"
#include "nest/CRandom.h"
#include "nest/Places.h"

namespace nestrix {

/// Looks for a lower packing by way of layouts that overlap (after Gardeyn and Vanden Berghe, An open-source
/// heuristic to reboot 2D nesting research, 2025). A strip only a little lower than the best packing is tried
/// again and again, with patience; each attempt begins, disturbed, at what is left of one that failed. That
/// leads far from the best packing, where walks from packing to packing stay near it.
class CExplorer {
public:
    CExplorer(const CPackProblem& problem, CPackingFinder& finder, CRandom& random);

    /// One attempt. The first one for a best packing begins at that.
    /// @param take is given the packing that is found, if any; whether it is the best.
    void Explore(const SSolution& best, const std::function<bool(const SSolution&)>& take);

private:
    CPackingFinder& m_Finder;
    CRandom& m_Random;
    CDisturber m_Disturber;
    double m_Height = 0.0;  ///< of the best packing, for which those failed
    CFailures m_Failures;
};

}  // namespace nestrix
