#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

#include "nest/CItemOverlap.h"
#include "nest/CRandom.h"

namespace nestrix {

/// Tries places for an item all over the strip, around its present place, and where it touches another item,
/// in any version.
class CPlaceSampler {
public:
    CPlaceSampler(const CItemOverlap& overlap, CRandom& random) : m_Overlap(overlap), m_Random(random) {}

    /// The place at which the item overlaps least; no value where the strip is too low for it.
    [[nodiscard]] SCandidate FindBest();

private:
    /// Places of one version, evaluated together.
    struct SBatch {
        size_t m_nVersion = 0;
        size_t m_nCount = 0;
        std::array<SPoint, SPlaceBatch::SIZE> m_At;
    };
    /// A place of a batch, and what its overlap comes to at least.
    struct SRanked {
        float m_fLeast;
        uint32_t m_nBatch;
        uint32_t m_nPlace;
    };

    void DrawAnywhere(SBatch& batch);
    void DrawAround(SBatch& batch);
    void DrawTouching(SBatch& batch);
    [[nodiscard]] size_t AnyVersion();
    void TakeIfLess(const SPlace& place, SCandidate& best) const;
    [[nodiscard]] SCandidate FindBestByRank();
    [[nodiscard]] const std::vector<SLeastDepths>& LeastDepthsOf(size_t nVersion);
    void Rank();

    const CItemOverlap& m_Overlap;
    CRandom& m_Random;
    std::vector<SBatch> m_Batches;
    std::vector<SRanked> m_Ranked;
    /// Of versions, for the item of this move; behind those known, others keep their memory.
    std::vector<std::pair<size_t, std::vector<SLeastDepths>>> m_LeastDepths;
    size_t m_nVersionsKnown = 0;
};

}  // namespace nestrix
