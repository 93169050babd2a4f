#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "packing/drop/CColumnIndex.h"
#include "packing/drop/CCornerIndex.h"
#include "packing/drop/CProfileSet.h"
#include "packing/drop/CStartGrid.h"
#include "packing/drop/SObstacles.h"
#include "packing/drop/Sweep.h"

namespace nestrix {

/// Everything placed in the strip, indexed so that a drop looks at few obstacles and still falls exactly as
/// far as if it had asked all of them, latest first, by FindApproach.
///
/// It rests on three facts. A gap of zero or less that comes from a vertical side needs a corner at exactly
/// that x: those are looked up. All other gaps depend on heights only, so obstacles that lie too low cannot
/// win. And the order in which obstacles are asked does not matter when the one with the smallest gap is
/// asked whatever was asked before it. Where this cannot be shown, FindFall says so.
class CDropField {
public:
    /// @param polygons the set. It must stay as it is while the field lives.
    /// @param fStartY the y of the reference point of a polygon that starts to fall.
    /// @param pAbandoned once this is true, the field is of no use any more: everything that takes time
    ///        returns soon, with whatever it has got. May be null.
    CDropField(std::span<const CPolygon> polygons, float fStripWidth, float fStartY,
               const CRelaxed<bool>* pAbandoned);

    /// Whether the field can take all the set's polygons; without it, nothing below may be called.
    [[nodiscard]] bool IsUsable() const { return m_bUsable; }

    /// Whether the field can take a polygon at this offset.
    [[nodiscard]] bool CanTakeOffset(float fX) const {
        return fX >= -m_fLargestOffset && fX <= m_fLargestOffset;
    }

    /// Empties the strip for a layout of nDrops polygons.
    void Clear(size_t nDrops);

    /// How far the polygon falls.
    /// @param placed all polygons added since Clear, in that order.
    /// @return nothing if the order in which the obstacles are asked may matter.
    [[nodiscard]] std::optional<float> FindFall(const SDrop& drop, std::span<const SDrop> placed);

    /// Adds the polygon that has come to rest as number nDrop.
    void Add(const SDrop& drop, int nDrop);

private:
    /// The upper profile of a placed polygon.
    struct SPlacedHalf {
        SMovedHalf m_Back;
        uint64_t m_nQuery;  ///< the last query that looked at it
    };

    /// One polygon on its way down.
    struct SFalling {
        const SDrop& m_Drop;
        const SProfile& m_Profile;
        SMovedHalf m_Front;
        float m_fBoxBottom;  ///< local
        std::span<const SDrop> m_Placed;
    };

    void PrepareStartGrid(float fStartY);

    [[nodiscard]] SFalling PrepareFall(const SDrop& drop, std::span<const SDrop> placed) const;

    /// The landing with the smallest gap below `landing`, vertical sides apart, among the obstacles younger
    /// than nAfter; `landing` if there is none.
    [[nodiscard]] SLanding FindLanding(const SFalling& falling, SLanding landing, int nAfter);

    /// Whether the obstacle passes the level test at a running fall of fFall.
    [[nodiscard]] bool PassesLevelTestAt(const SFalling& falling, float fFall, int nObstacle) const;

    /// Whether the landing with the smallest gap passes the level test whatever came before it.
    [[nodiscard]] bool IsCertain(const SFalling& falling, const SLanding& landing);

    /// The gap below `landing` that vertical sides in line with corners give: the landing's own fall if none,
    /// nothing if only the walk can tell.
    [[nodiscard]] std::optional<float> FindHang(const SFalling& falling, const SLanding& landing);

    /// Whether the obstacle, which would stop the polygon where it starts, passes the level test when its
    /// turn comes: the younger ones do not already hold the polygon above it. Nothing if only the walk can
    /// tell.
    [[nodiscard]] std::optional<bool> PassesAtItsTurn(const SFalling& falling, const SLanding& landing,
                                                      int nObstacle);

    std::span<const CPolygon> m_Polygons;
    float m_fStripWidth;
    float m_fLargestOffset;
    const CRelaxed<bool>* m_pAbandoned;
    CProfileSet m_Profiles;
    bool m_bVerticals;
    bool m_bUsable;
    size_t m_nColumns = 1;
    size_t m_nCapacity = 0;

    std::vector<SPlacedHalf> m_Placed;
    CColumnIndex m_Columns;
    CCornerIndex m_Corners;
    CStartGrid m_StartGrid;
    size_t m_nAtStart = 0;  ///< how many have come to rest where polygons start
    uint64_t m_nQuery = 0;
};

}  // namespace nestrix
