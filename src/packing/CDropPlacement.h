#pragma once

#include <span>
#include <vector>

#include "base/CRelaxed.h"
#include "packing/CContactSink.h"
#include "packing/SPacking.h"
#include "packing/drop/CDropField.h"

namespace nestrix {

/// One polygon of a set to be dropped.
struct SMove {
    int m_nPiece = 0;   ///< index in the set
    float m_fX = 0.0F;  ///< of its reference point in the strip
};

/// Turns sequences of moves into packings of one polygon set, and keeps the working storage between them. For
/// one thread at a time; whoever places on another thread makes a placement of his own.
///
/// Each polygon falls straight down from above everything placed until it rests on the floor or on a polygon
/// placed before it. Defined by the walk: every drop asks all that is placed, latest first. Most drops take
/// the short cut of CDropField instead, which gives the same packing bit for bit.
class CDropPlacement {
public:
    /// How many drops took which way, and how many layouts could take no short cut at all.
    struct SCounts {
        size_t m_nShort = 0;
        size_t m_nWalked = 0;
        size_t m_nWalkedLayouts = 0;
    };

    /// @param polygons the set; it must outlive the placement and stay as it is.
    /// @param fStackedHeight the height of all polygons in one column, as a rule StackedHeight(polygons).
    /// They
    ///        fall from twice that height.
    /// @param pAbandoned once this is true, the placement is of no use any more: Place returns soon, with
    ///        whatever it has got. May be null; otherwise it must outlive the placement.
    CDropPlacement(std::span<const CPolygon> polygons, const SStrip& strip, float fStackedHeight,
                   const CRelaxed<bool>* pAbandoned = nullptr);

    /// Drops the polygons one after the other.
    /// @param moves of polygons of the set.
    /// @return the packing's height.
    /// @param pContacts hears of every contact; may be null. With it, every drop walks: the short cut does
    ///        not know which of several equal contacts comes first.
    float Place(std::span<const SMove> moves, CContactSink* pContacts = nullptr);

    /// Copies the last packing into `packing`, whose storage is kept.
    void CopyPacking(SPacking& packing) const;

    [[nodiscard]] const SCounts& Counts() const { return m_Counts; }

private:
    struct SRest {
        float m_fFall;  ///< from the starting height
        mgVector3 m_Contact;
    };

    [[nodiscard]] SDrop Drop(const SMove& move, CContactSink* pContacts);
    [[nodiscard]] bool CanTakeShortCuts(std::span<const SMove> moves) const;
    [[nodiscard]] float FindFall(const SDrop& falling, CContactSink* pContacts);
    [[nodiscard]] SRest Walk(const SDrop& falling) const;

    std::span<const CPolygon> m_Polygons;
    SStrip m_Strip;
    float m_fStartY;
    CDropField m_Field;
    std::vector<SDrop> m_Drops;
    float m_fHeight = 0.0F;  ///< of the last packing
    bool m_bShortCuts = false;
    const CRelaxed<bool>* m_pAbandoned;
    SCounts m_Counts;
};

}  // namespace nestrix
