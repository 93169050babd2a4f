#pragma once

#include <optional>
#include <span>
#include <vector>

#include "nest/CLayout.h"
#include "nest/CPackProblem.h"
#include "nest/CompactionProgram.h"

namespace nestrix {

/// Moves all items together a little, so that no two overlap, exactly, and the strip is as low as that
/// allows.
///
/// Each two convex parts that are near each other keep to the sides of the line that separates them best;
/// what is left is a linear program in all items' moves (Li and Milenkovic, "Compaction and separation
/// algorithms for non-convex polygons", 1995). Its solution is rounded to the grid; lines that do not run
/// along an axis are moved apart beforehand by what the rounding may take. Of many items, those at one level
/// move at a time.
class CCompactor {
public:
    explicit CCompactor(const CPackProblem& problem);

    struct SResult {
        std::vector<SPlace> m_Places;  ///< points of the grid
        double m_Overlap = 0.0;        ///< how much of the overlaps is left, in units; 0: none
    };

    /// @param places not necessarily free of overlaps.
    /// @param reach no item moves farther along either axis, in units.
    /// @return nothing where there is no solution: an item is too far out of the strip.
    [[nodiscard]] std::optional<SResult> Compact(std::span<const SPlace> places, double reach);

private:
    struct SExactParts {
        std::vector<CConvexPart> m_Parts;
        std::vector<SPlaneBox> m_Boxes;
    };

    [[nodiscard]] const SExactParts& PartsOf(size_t nVersion);
    [[nodiscard]] SPlaneBox BoxOf(const SPlace& place) const;
    [[nodiscard]] SMovable MovableOf(const SPlace& place, double reach) const;
    [[nodiscard]] std::optional<double> CompactBlock(std::vector<SPlace>& places,
                                                     std::span<const size_t> items, double reach);
    void AppendRows(std::span<const SPlace> places, size_t nFirst, size_t nSecond, double reach);

    const CPackProblem& m_Problem;
    std::vector<std::optional<SExactParts>> m_Parts;  ///< of each version, once they are asked for
    std::vector<size_t> m_Movable;                    ///< each item's number in the block, or NOT_MOVABLE
    std::vector<SKeepApart> m_Rows;
};

}  // namespace nestrix
