#pragma once

#include <cstddef>
#include <span>

namespace nestrix {

/// What the depths of a field are at least, as a table of cells, seen from the strip, in which the field may
/// be turned. Lower bounds, but for the rounding of single precision, which may look into the next cell.
struct SLeastDepths {
    const float* m_pCells;  ///< row by row; the outermost ones, all around, hold 0 and stand for all beyond
    int m_nColumns;
    float m_fCosine, m_fSine;         ///< of the turn, each times the cells in a unit of length
    float m_fColumn, m_fRow;          ///< in which the place 0, 0 lies, with the share of the cell
    float m_fLastColumn, m_fLastRow;  ///< that there are
    float m_fFactor;                  ///< what the depths are multiplied with
};

/// Places at which one version is tried, side by side.
struct SPlaceBatch {
    static constexpr size_t SIZE = 8;

    float m_fX[SIZE];
    float m_fY[SIZE];
    float m_fLeast[SIZE];  ///< what the overlaps of each place come to at least
};

/// Sums up all fields for each place of a batch.
void SumLeastDepths(std::span<const SLeastDepths> fields, SPlaceBatch& batch);

}  // namespace nestrix
