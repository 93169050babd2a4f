#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "packing/PointVectors.h"

class ClpSimplex;

namespace nestrix {

/// How an item may move in a compaction, and what it costs.
struct SMovable {
    SPlaneBox m_Room;    ///< of its move
    double m_Top = 0.0;  ///< of the item before the move
};

/// Two items that are to stay on their sides of a line.
struct SKeepApart {
    size_t m_nPair = 0;  ///< items' numbers would not do: all that do not move have the same
    size_t m_nFirst = 0;
    size_t m_nSecond = 0;
    SPoint m_Normal;
    double m_Least = 0.0;  ///< of Dot(normal, move of the first less that of the second)
    double m_Lost = 0.0;   ///< what of it is there for rounding
};

/// Items that do not move have this number.
inline constexpr size_t NOT_MOVABLE = static_cast<size_t>(-1);

/// What a compaction moves, and what it leaves.
struct SCompaction {
    std::vector<SPoint> m_Moves;  ///< of each movable item
    double m_Overlap = 0.0;       ///< what could not be taken apart, in units: the sum over all pairs
};

/// The linear program of a compaction: moves within the rooms, overlaps taken apart as far as that goes, then
/// the least height of the strip, then all as low as it can be. Rows may be added to a program that has been
/// solved: its next solution is found from the last one, in few steps.
class CCompactionProgram {
public:
    /// @param fixedTop the highest top of the items that do not move.
    /// @param reach a length that moves are compared with: the program's numbers are near 1 then.
    CCompactionProgram(std::span<const SMovable> items, double fixedTop, double reach);
    ~CCompactionProgram();

    CCompactionProgram(const CCompactionProgram&) = delete;
    CCompactionProgram& operator=(const CCompactionProgram&) = delete;

    /// Of a pair with an overlap, which is one with a row whose least is above 0, what moves leave of it is
    /// counted once, however many lines it is on the wrong side of. Rows of the pair from calls before the
    /// first such row leave nothing.
    void Add(std::span<const SKeepApart> rows);

    /// Leaves nothing for rounding in the rows that there are.
    void Tighten();

    /// @return nothing where there is no solution: a room is empty.
    [[nodiscard]] std::optional<SCompaction> Solve();

private:
    void AddItems(std::span<const SMovable> items, double fixedTop);
    void AddTops(std::span<const SMovable> items);
    void AddOverlaps(std::span<const SKeepApart> rows);
    [[nodiscard]] SCompaction ReadSolution() const;

    std::unique_ptr<ClpSimplex> m_pSolver;
    size_t m_nItems;
    double m_Reach;
    bool m_bRoom = true;                               ///< for each item
    std::vector<double> m_Lost;                        ///< of each row of the solver, in reaches
    std::vector<std::optional<int>> m_OverlapColumns;  ///< of each pair; of those without overlap nothing
};

}  // namespace nestrix
