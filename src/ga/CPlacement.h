#pragma once

#include <span>
#include <vector>

#include "CContainer.h"
#include "SBox.h"

/// One polygon that has been dropped.
struct SDrop {
    int m_nPolygon = 0;          ///< index in the polygon set
    mgVector3 m_ReferencePoint;  ///< where it came to rest
};

/// Turns chromosomes into packings of one polygon set, and keeps the working storage between them. For one
/// thread at a time; whoever places on another thread makes a placement of his own.
class CPlacement {
public:
    /// @param polygons the set; it must outlive the placement and stay as it is.
    /// @param fTotalHeight the height of all polygons in one column. They fall from twice that height.
    CPlacement(std::span<const CPolygon> polygons, float fTotalHeight, float fStripWidth);

    /// Drops the genes' polygons in ascending order of their keys and returns the packing's fitness. Genes
    /// of unknown polygons are skipped.
    /// @param pContacts hears of every contact; may be null.
    float Place(std::span<const SGene> genes, CContactSink* pContacts = nullptr);

    /// The last packing, in drop order.
    [[nodiscard]] std::span<const SDrop> Drops() const { return m_Drops; }

private:
    struct SRest {
        float m_fFall;  ///< from the starting height
        mgVector3 m_Contact;
    };

    [[nodiscard]] SRest FindRest(const SDrop& falling) const;

    std::span<const CPolygon> m_Polygons;
    float m_fTotalHeight;
    float m_fStartY;
    std::vector<SGene> m_Sorted;
    std::vector<SDrop> m_Drops;
};
