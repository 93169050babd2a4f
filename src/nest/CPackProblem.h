#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "nest/ForbiddenRegion.h"
#include "nest/GridGeometry.h"
#include "nest/TurnsToTry.h"
#include "packing/SFreePacking.h"

namespace nestrix {

/// A shape that a search knows by itself: a piece as it was drawn, or mirrored, in the turn that others are
/// steps from. Equal pieces share it.
struct SFigure {
    SGridShape m_Shape;                ///< cleaned, its reference point (the middle of its box) at 0, 0
    std::vector<CConvexPart> m_Parts;  ///< of the shape simplified, for the search
    double m_Area = 0.0;
};

/// A figure in one of its turns.
struct SVersion {
    size_t m_nFigure = 0;
    size_t m_nTurn = 0;  ///< of the figure: index in the problem's turns
    bool m_bMirrored = false;
    double m_Degrees = 0.0;  ///< the whole turn, as it is written down
    SGridShape m_Shape;      ///< cleaned and exact, the reference point at 0, 0
    SGridPoint m_Reference;  ///< of the figure, in the coordinates of Laid for this turn
    SGridBox m_Box;          ///< of m_Shape
};

/// What is to be packed, made ready for a search: everything on the grid, each allowed turn of each piece
/// tried out, turns that look the same taken once.
class CPackProblem {
public:
    /// @param pieces none of them unfit.
    /// @param bUseHoles whether pieces may lie in holes of others.
    /// @param pStart an earlier packing whose turns are to be tried, too, as far as they are allowed, also
    ///        those that look like others; may be null.
    CPackProblem(std::span<const SPiece> pieces, const SFreeStrip& strip, bool bUseHoles,
                 const SFreePacking* pStart = nullptr);

    [[nodiscard]] std::span<const SPiece> Pieces() const { return m_Pieces; }
    [[nodiscard]] const SGrid& Grid() const { return m_Grid; }
    [[nodiscard]] const SGridStrip& Strip() const { return m_GridStrip; }
    [[nodiscard]] bool UsesHoles() const { return m_bUseHoles; }
    /// Whether any of the items may be turned by any angle.
    [[nodiscard]] bool HasAnyTurn() const;

    [[nodiscard]] const std::vector<SFigure>& Figures() const { return m_Figures; }
    [[nodiscard]] const std::vector<SVersion>& Versions() const { return m_Versions; }
    [[nodiscard]] const std::vector<double>& Turns() const { return m_Turns; }

    /// The copies to be placed: each one's piece.
    [[nodiscard]] const std::vector<size_t>& Items() const { return m_Items; }

    /// The versions that a piece may be laid in, those that fit the strip.
    [[nodiscard]] const std::vector<size_t>& VersionsOf(size_t nPiece) const { return m_VersionsOf[nPiece]; }
    /// Those of them that differ by quarter turns from the first, where the piece may be turned by any angle
    /// and lies in one of them; else all.
    [[nodiscard]] const std::vector<size_t>& MainVersionsOf(size_t nPiece) const {
        return m_MainVersionsOf[nPiece];
    }
    /// The version of a piece in exactly this turn, however it is written; nothing if it is not among those
    /// to be tried.
    [[nodiscard]] std::optional<size_t> FindVersion(size_t nPiece, double degrees, bool bMirrored) const;

    [[nodiscard]] double AreaOf(size_t nPiece) const { return m_Areas[nPiece]; }
    [[nodiscard]] double TotalArea() const { return m_TotalArea; }

    /// No packing can be lower: that of the tallest piece, and that of a full strip.
    [[nodiscard]] int64_t LeastHeight() const;

    /// The copy as a placement of the packing.
    /// @param at its reference point.
    [[nodiscard]] SFreePlacement PlacementOf(size_t nItem, size_t nVersion, SGridPoint at) const;

    /// The packing of all items.
    [[nodiscard]] SFreePacking PackingOf(std::span<const SFreePlacement> placed) const;

    /// So deep an overlap counts as none in the search, in units: a four millionth of the width. Pieces that
    /// just fit a gap would not find in otherwise.
    [[nodiscard]] double Slack() const { return m_Slack; }

private:
    void AddPiece(size_t nPiece, const SFreePacking* pStart);
    void AddVersions(size_t nPiece, bool bMirrored, EBase eBase, const SFreePacking* pStart);
    /// @param bInAnyCase even if it looks like one that is known.
    void AddVersion(size_t nPiece, SVersion version, bool bInAnyCase);
    [[nodiscard]] std::vector<size_t> FindMainVersions(size_t nPiece) const;
    [[nodiscard]] size_t FindFigure(const SGridShape& shape);
    [[nodiscard]] size_t FindTurn(double degrees);

    std::span<const SPiece> m_Pieces;
    SFreeStrip m_Strip;
    SGrid m_Grid;
    SGridStrip m_GridStrip;
    double m_Slack = 0.0;
    bool m_bUseHoles;
    EBase m_eBase;
    std::vector<SFigure> m_Figures;
    std::vector<SVersion> m_Versions;
    std::vector<double> m_Turns;
    std::vector<std::vector<size_t>> m_VersionsOf;
    std::vector<std::vector<size_t>> m_MainVersionsOf;
    std::vector<double> m_Areas;
    std::vector<size_t> m_Items;
    double m_TotalArea = 0.0;
};

}  // namespace nestrix
