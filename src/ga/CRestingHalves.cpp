#include "CRestingHalves.h"

#include <cmath>

namespace {

void Move(const float* pValues, size_t nCount, float fOffset, float* pMoved) {
    for (size_t i = 0; i < nCount; ++i) {
        pMoved[i] = pValues[i] + fOffset;
    }
}

}  // namespace

CRestingHalves::SPlace CRestingHalves::Append(const SHalfProfile& half, float fX, float fY) {
    const size_t nEnd = m_nUsed + half.CountX() + half.CountY();
    if (nEnd > m_Values.size()) {
        m_Values.resize(2 * nEnd);
    }
    float* const pX = m_Values.data() + m_nUsed;
    MoveX(half, fX, pX);
    Move(half.m_pY, half.CountY(), fY, pX + half.CountX());
    // Several roundings to float of anything that goes into a height.
    const float fSlack = (std::abs(half.m_fLow) + std::abs(half.m_fHigh) + std::abs(fY)) * 0x1p-21F;
    const SPlace place{m_nUsed, half.m_fLow + fY - fSlack, half.m_fHigh + fY + fSlack};
    m_nUsed = nEnd;
    return place;
}

void MoveX(const SHalfProfile& half, float fX, float* pMoved) {
    Move(half.m_pX, half.CountX(), fX, pMoved);
}
