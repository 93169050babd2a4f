#pragma once

#include <span>
#include <vector>

#include "ga/CChromosome.h"
#include "packing/CDropPlacement.h"

namespace nestrix {

/// Turns chromosomes into packings, as the decoder of a search with random keys does: the genes' polygons are
/// dropped in ascending order of their keys. Keeps its working storage; for one thread at a time.
class CDecoder {
public:
    /// See CDropPlacement for the parameters.
    CDecoder(std::span<const CPolygon> polygons, const SStrip& strip, float fStackedHeight,
             const CRelaxed<bool>* pAbandoned = nullptr);

    /// Genes of unknown polygons are skipped. Equal keys end in whatever order the C library's qsort gives,
    /// deliberately.
    /// @param pContacts hears of every contact; may be null.
    /// @return the fitness: the height of all polygons in one column less the packing's height. Bigger is
    ///         better.
    float Evaluate(std::span<const SGene> genes, CContactSink* pContacts = nullptr);

    /// The last packing.
    [[nodiscard]] SPacking Packing() const;

    /// Copies the last packing into `packing`, whose storage is kept.
    void CopyPacking(SPacking& packing) const { m_Placement.CopyPacking(packing); }

    [[nodiscard]] const CDropPlacement::SCounts& Counts() const { return m_Placement.Counts(); }

private:
    /// A gene of a size that qsort moves in whole words. The order that equal keys end in does not depend on
    /// the size.
    struct alignas(16) SSortedGene : SGene {};

    size_t m_nPolygons;
    float m_fStackedHeight;
    CDropPlacement m_Placement;
    std::vector<SSortedGene> m_Sorted;
    std::vector<SMove> m_Moves;
};

}  // namespace nestrix
