#pragma once

#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "nest/CExactParts.h"
#include "nest/CPackProblem.h"
#include "nest/Places.h"

class ClpSimplex;

namespace nestrix {

class CRows;

/// The linear program of a compaction in which items also turn, about their reference points: each two convex
/// parts that are near each other keep to the sides of the line along an edge of one of them, which turns
/// with that one. What turning does is taken as linear, so that a solution may overlap a little (Li and
/// Milenkovic, "Compaction and separation algorithms for non-convex polygons", 1995).
class CTurnProgram {
public:
    /// How far a solution may lead from where the items are, in units: a move along either axis, and a turn
    /// at the point of an item that is farthest from its reference point.
    struct SReach {
        double m_Move = 0.0;
        double m_Turn = 0.0;
    };

    /// @param places of all items, which do not overlap.
    /// @param items those that move.
    /// @param mayTurn for each of all items.
    CTurnProgram(const CPackProblem& problem, CExactParts& parts, std::span<const SPlace> places,
                 std::span<const size_t> items, const std::vector<bool>& mayTurn, const SReach& reach);
    ~CTurnProgram();
    CTurnProgram(const CTurnProgram&) = delete;
    CTurnProgram& operator=(const CTurnProgram&) = delete;

    /// How an item is to move, and then to turn about its reference point.
    struct STurned {
        SPoint m_Move;
        double m_Radians = 0.0;  ///< counter-clockwise
    };
    /// What makes the strip lowest, and then all items low: for each that moves, in their order.
    [[nodiscard]] std::optional<std::vector<STurned>> Solve();

private:
    struct SItem {
        SPlaneBox m_Box;
        int m_nColumn = FIXED;  ///< of the move along x; those along y and of the turn follow
        double m_Radius = 1.0;  ///< from the reference point to the farthest point
    };
    /// Two convex parts, and the line that separates them best.
    struct SNeighbours {
        size_t m_nFirst, m_nSecond;
        const CConvexPart* m_pFirst;
        const CConvexPart* m_pSecond;
        SPoint m_At;      ///< the place of the first less that of the second
        SPoint m_Normal;  ///< of the line, from the second to the first
    };
    static constexpr int FIXED = -1;

    void MeasureItems();
    void AddColumns(std::span<const size_t> items, const std::vector<bool>& mayTurn);
    void AddStrip(CRows& rows, size_t nItem) const;
    void AddNeighbours(CRows& rows, size_t nItem) const;
    void AddParts(CRows& rows, size_t nFirst, size_t nSecond) const;
    void KeepApart(CRows& rows, const SNeighbours& parts) const;
    void KeepApart(CRows& rows, const SNeighbours& parts, SPoint first, SPoint second, bool bTurnsWithFirst,
                   bool bTurnsWithSecond) const;
    void AddMotion(CRows& rows, size_t nItem, SPoint way, double turn) const;
    const CPackProblem& m_Problem;
    CExactParts& m_Parts;
    std::span<const SPlace> m_Places;
    SReach m_Reach;
    double m_Far;  ///< what is farther apart, beyond the spacing, is left to the compaction that follows
    std::vector<SItem> m_Items;
    size_t m_nMoving;
    std::unique_ptr<ClpSimplex> m_pSolver;
};

}  // namespace nestrix
