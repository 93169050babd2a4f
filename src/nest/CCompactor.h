#pragma once

#include <optional>
#include <span>
#include <vector>

#include "nest/CExactParts.h"
#include "nest/CLayout.h"
#include "nest/CPackProblem.h"

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

    /// A layout after a compaction.
    struct SResult {
        std::vector<SPlace> m_Places;  ///< points of the grid
        double m_Overlap = 0.0;        ///< how much of the overlaps is left, in units; 0: none
    };

    /// @param places not necessarily free of overlaps.
    /// @param reach no item moves farther along either axis, in units.
    /// @return nothing where there is no solution: an item is too far out of the strip.
    [[nodiscard]] std::optional<SResult> Compact(std::span<const SPlace> places, double reach);

private:
    [[nodiscard]] std::optional<double> CompactBlock(std::vector<SPlace>& places,
                                                     std::span<const size_t> items, double reach);

    const CPackProblem& m_Problem;
    CExactParts m_Parts;
};

}  // namespace nestrix
