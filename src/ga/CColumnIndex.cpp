#include "CColumnIndex.h"

#include <algorithm>

void CColumnIndex::Reset(float fWidth, size_t nColumns, size_t nCapacity) {
    m_fColumnsPerUnit = static_cast<float>(nColumns) / fWidth;
    m_nCapacity = nCapacity;
    m_Counts.assign(nColumns, 0);
    m_Entries.resize(nColumns * nCapacity);
}

void CColumnIndex::Clear() {
    std::fill(m_Counts.begin(), m_Counts.end(), 0);
}

void CColumnIndex::Insert(float fLeft, float fRight, SEntry entry) {
    const SColumns columns = ColumnsOf(fLeft, fRight);
    for (size_t nColumn = columns.m_nFirst; nColumn <= columns.m_nLast; ++nColumn) {
        SEntry* const pColumn = m_Entries.data() + nColumn * m_nCapacity;
        size_t nPlace = m_Counts[nColumn]++;
        for (; nPlace > 0 && pColumn[nPlace - 1].m_fHigh > entry.m_fHigh; --nPlace) {
            pColumn[nPlace] = pColumn[nPlace - 1];
        }
        pColumn[nPlace] = entry;
    }
}
