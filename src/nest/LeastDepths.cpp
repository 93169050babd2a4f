#include "nest/LeastDepths.h"

#include <algorithm>

#include "base/VectorClones.h"

namespace nestrix {

NESTRIX_VECTOR_CLONES
void SumLeastDepths(std::span<const SLeastDepths> fields, SPlaceBatch& batch) {
    float sums[SPlaceBatch::SIZE] = {};
    for (const SLeastDepths& field : fields) {
        for (size_t i = 0; i < SPlaceBatch::SIZE; ++i) {
            const float x = batch.m_fX[i];
            const float y = batch.m_fY[i];
            const float column = field.m_fCosine * x + field.m_fSine * y + field.m_fColumn;
            const float row = field.m_fCosine * y - field.m_fSine * x + field.m_fRow;
            // In this order: what is not a number, as of a field without any part, counts as outside.
            const int nColumn = static_cast<int>(std::min(std::max(0.0F, column), field.m_fLastColumn));
            const int nRow = static_cast<int>(std::min(std::max(0.0F, row), field.m_fLastRow));
            sums[i] += field.m_fFactor * field.m_pCells[nRow * field.m_nColumns + nColumn];
        }
    }
    std::copy_n(sums, SPlaceBatch::SIZE, batch.m_fLeast);
}

}  // namespace nestrix
