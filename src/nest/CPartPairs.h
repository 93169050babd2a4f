#pragma once

#include <optional>
#include <span>
#include <vector>

#include "nest/CCompactionProgram.h"
#include "nest/CExactParts.h"

namespace nestrix {

/// Each two convex parts, of two items, that can reach each other in a compaction. They keep to the sides of
/// the line that separates them best where they are. Of all these lines few are ever needed: some of parts
/// that are near each other, and those of parts that a solution moves over each other.
///
/// Used in turns: add the pairs of items, take the near parts' rows, solve, take the rows of what overlaps
/// now, solve again, until nothing does. Each row is given once, so that this ends.
class CPartPairs {
public:
    /// @param spacing between two items.
    /// @param reach no item moves farther along either axis. Both in units.
    CPartPairs(CExactParts& parts, double spacing, double reach);

    /// One side of the pairs: an item in its place.
    struct SItem {
        size_t m_nNumber = NOT_MOVABLE;  ///< in the program
        size_t m_nVersion = 0;
        SPoint m_At;  ///< before any move
    };
    void Add(const SItem& first, const SItem& second);

    /// The rows of parts that overlap or are near each other: of each two items those that overlap most.
    [[nodiscard]] std::vector<SKeepApart> TakeNear();

    /// The rows of the parts that overlap after these moves, or may do so once they are rounded. Those that
    /// were taken before are not among them.
    /// @param moves of the items, by number.
    [[nodiscard]] std::vector<SKeepApart> TakeOverlapping(std::span<const SPoint> moves);

    /// Leaves nothing for rounding in the rows to come.
    void Tighten() { m_bTight = true; }

private:
    struct SItemPair {
        size_t m_nFirst;
        size_t m_nSecond;
        SPoint m_At;  ///< the place of the first less that of the second
    };
    struct SPartPair {
        size_t m_nPair;
        const CConvexPart* m_pFirst;
        const CConvexPart* m_pSecond;
        SPlaneBox m_Forbidden;             ///< for the first less the second, without spacing
        double m_Apart;                    ///< beyond the spacing: along an axis, or from a side if near
        std::optional<SHalfPlane> m_Side;  ///< that separates them best, once it is known
    };

    [[nodiscard]] std::vector<const CExactParts::SPart*> Reachable(const CExactParts::SParts& parts,
                                                                   SPoint at, const SPlaneBox& box) const;
    void AddParts(const CExactParts::SPart& own, const CExactParts::SPart& its);
    [[nodiscard]] const SHalfPlane& SideOf(SPartPair& parts) const;
    [[nodiscard]] bool Overlap(SPartPair& parts, SPoint at) const;
    [[nodiscard]] double Lost(const SHalfPlane& side) const;
    [[nodiscard]] SKeepApart RowOf(SPartPair& parts) const;
    template <class TIsTaken>
    [[nodiscard]] std::vector<SKeepApart> Take(TIsTaken&& isTaken);

    CExactParts& m_Parts;
    double m_Spacing;
    double m_Farthest;  ///< boxes that are farther apart along an axis, beyond the spacing, stay apart
    double m_Near;      ///< beyond the spacing
    bool m_bTight = false;
    std::vector<SItemPair> m_Items;
    std::vector<SPartPair> m_Waiting;  ///< whose rows were not taken yet
};

}  // namespace nestrix
