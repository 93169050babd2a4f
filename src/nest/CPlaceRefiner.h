#pragma once

#include <vector>

#include "nest/CItemOverlap.h"
#include "nest/CRandom.h"
#include "nest/CVicinity.h"

namespace nestrix {

/// Moves an item a little, to where it overlaps less: a descent in shrinking steps, then a polish onto the
/// crossing of two borders.
class CPlaceRefiner {
public:
    CPlaceRefiner(const CItemOverlap& overlap, CRandom& random)
        : m_Overlap(overlap), m_Random(random), m_Vicinity(overlap) {}

    /// Within the room of its version, and never to where it overlaps more, but for rounding.
    /// @param candidate its value is exact.
    void Refine(SCandidate& candidate);

private:
    void Descend(SCandidate& candidate, double size);
    void Polish(SCandidate& candidate, double reach);

    const CItemOverlap& m_Overlap;
    CRandom& m_Random;
    CVicinity m_Vicinity;
    std::vector<CHingeModel::SHinge> m_Hinges;
};

}  // namespace nestrix
