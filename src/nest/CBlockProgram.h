#pragma once

#include <optional>
#include <span>
#include <vector>

#include "nest/CCompactionProgram.h"
#include "nest/CExactParts.h"
#include "nest/CLayout.h"
#include "nest/CPartPairs.h"

namespace nestrix {

/// The compaction of some of a layout's items, while the others stay where they are: each two convex parts
/// near each other, of which one at least may move, keep to the sides of the line that separates them best.
class CBlockProgram {
public:
    /// @param places of all items; they are to stay unchanged as long as the program is used.
    /// @param items those that move: no farther than the reach along either axis, in units.
    CBlockProgram(const CPackProblem& problem, CExactParts& parts, std::span<const SPlace> places,
                  std::span<const size_t> items, double reach);

    /// Moves which, rounded to the grid, leave the overlap that is told: 0 for none.
    /// @return nothing where there is no solution: an item is too far out of the strip.
    [[nodiscard]] std::optional<SCompaction> Solve();

private:
    struct SNeighbour {
        SPlaneBox m_Box;
        size_t m_nItem = 0;
    };

    void AddItems(std::span<const size_t> items);
    void AddPairs();
    [[nodiscard]] std::vector<SNeighbour> FindNeighbourhood() const;
    [[nodiscard]] std::optional<SCompaction> SolveWithRows(CCompactionProgram& program);
    [[nodiscard]] bool Moves(size_t nItem) const { return m_Numbers[nItem] != NOT_MOVABLE; }
    [[nodiscard]] SPlaneBox BoxOf(size_t nItem) const;
    [[nodiscard]] SMovable MovableOf(size_t nItem) const;
    [[nodiscard]] CPartPairs::SItem ItemOf(size_t nItem) const;

    const CPackProblem& m_Problem;
    std::span<const SPlace> m_Places;
    double m_Reach;
    double m_Farthest;              ///< boxes that are farther apart along an axis stay apart
    std::vector<size_t> m_Numbers;  ///< each item's number in the program, or NOT_MOVABLE
    std::vector<SMovable> m_Movable;
    SPlaneBox m_Around;       ///< of all items that move
    double m_FixedTop = 0.0;  ///< the highest of the items that do not
    CPartPairs m_PartPairs;
};

}  // namespace nestrix
