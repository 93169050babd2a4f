#pragma once

#include <span>
#include <vector>

#include "CContainer.h"
#include "CDropField.h"
#include "SDrop.h"

/// Turns chromosomes into packings of one polygon set, and keeps the working storage between them. For one
/// thread at a time; whoever places on another thread makes a placement of his own.
///
/// Defined by the walk: every drop asks all that is placed, latest first. Most drops take the short cut of
/// CDropField instead, which gives the same packing bit for bit.
class CPlacement {
public:
    /// How many drops took which way, and how many layouts could take no short cut at all.
    struct SCounts {
        size_t m_nShort = 0;
        size_t m_nWalked = 0;
        size_t m_nWalkedLayouts = 0;
    };

    /// @param polygons the set; it must outlive the placement and stay as it is.
    /// @param fTotalHeight the height of all polygons in one column. They fall from twice that height.
    /// @param pAbandoned once this is true, the placement is of no use any more: Place returns soon, with
    ///        whatever it has got. May be null; otherwise it must outlive the placement.
    CPlacement(std::span<const CPolygon> polygons, float fTotalHeight, float fStripWidth,
               const CRelaxed<bool>* pAbandoned = nullptr);

    /// Drops the genes' polygons in ascending order of their keys and returns the packing's fitness. Genes
    /// of unknown polygons are skipped.
    /// @param pContacts hears of every contact; may be null. With it, every drop walks: the short cut does
    ///        not know which of several equal contacts comes first.
    float Place(std::span<const SGene> genes, CContactSink* pContacts = nullptr);

    /// The last packing, in drop order.
    [[nodiscard]] std::span<const SDrop> Drops() const { return m_Drops; }

    [[nodiscard]] const SCounts& Counts() const { return m_Counts; }

private:
    struct SRest {
        float m_fFall;  ///< from the starting height
        mgVector3 m_Contact;
    };

    void SortGenes(std::span<const SGene> genes);
    [[nodiscard]] bool CanTakeShortCuts() const;
    [[nodiscard]] float FindFall(const SDrop& falling, CContactSink* pContacts);
    [[nodiscard]] SRest Walk(const SDrop& falling) const;

    /// A gene of a size that the C library's qsort moves in whole words. The order that equal keys end in
    /// does not depend on the size.
    struct alignas(16) SSortedGene : SGene {};

    std::span<const CPolygon> m_Polygons;
    float m_fTotalHeight;
    float m_fStartY;
    CDropField m_Field;
    std::vector<SSortedGene> m_Sorted;
    std::vector<SDrop> m_Drops;
    bool m_bShortCuts = false;
    const CRelaxed<bool>* m_pAbandoned;
    SCounts m_Counts;
};
