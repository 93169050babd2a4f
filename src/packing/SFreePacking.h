#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "packing/SGrid.h"
#include "packing/SPiece.h"

namespace nestrix {

/// Where pieces are packed freely: x from 0 to the width, y from the floor at 0 upward without end.
struct SFreeStrip {
    double m_Width = 400.0;
    double m_Spacing = 0.0;  ///< the least distance between any two pieces
    double m_Margin = 0.0;   ///< the least distance of any piece to the walls and to the floor

    friend bool operator==(const SFreeStrip&, const SFreeStrip&) = default;
};

/// One copy of a piece where it was laid.
struct SFreePlacement {
    int m_nPiece = 0;  ///< index in the set
    bool m_bMirrored = false;
    double m_Degrees = 0.0;  ///< by how much it is turned
    SGridPoint m_At;         ///< where the 0, 0 of Laid comes to lie in the strip

    friend bool operator==(const SFreePlacement&, const SFreePlacement&) = default;
};

/// Which pieces lie where in a strip, in which turn: a plain value, exact on its grid.
struct SFreePacking {
    SFreeStrip m_Strip;
    SGrid m_Grid;
    std::vector<SFreePlacement> m_Placed;
    int64_t m_nHeight = 0;  ///< the highest point of any piece

    friend bool operator==(const SFreePacking&, const SFreePacking&) = default;
};

/// The strip's lengths on the grid. The width is rounded down and the others up, unless they are whole
/// numbers of units but for what a decimal number loses as a double.
struct SGridStrip {
    int64_t m_nWidth = 0;
    int64_t m_nSpacing = 0;
    int64_t m_nMargin = 0;
};
[[nodiscard]] SGridStrip OnGrid(const SFreeStrip& strip, const SGrid& grid);

/// The shapes of the placed copies where they lie, in the order of placing.
[[nodiscard]] std::vector<SGridShape> PlacedShapes(std::span<const SPiece> pieces,
                                                   const SFreePacking& packing);

/// The highest point of any shape; 0 for none.
[[nodiscard]] int64_t HeightOf(std::span<const SGridShape> placed);

/// The area of the shape as it was drawn, holes taken off; at least 0.
[[nodiscard]] double AreaOf(const SShape& shape);

/// The share of the strip, from the floor to the packing's height, that the placed pieces' areas take, 0
/// to 1.
[[nodiscard]] double DensityOf(std::span<const SPiece> pieces, const SFreePacking& packing);

}  // namespace nestrix
