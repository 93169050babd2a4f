#include "tests/display/CPicture.h"

#include <cmath>
#include <sstream>

namespace nestrix::support {

namespace {

constexpr int CHANNELS = 3;

}  // namespace

std::ostream& operator<<(std::ostream& stream, const SColour& colour) {
    return stream << "rgb(" << int{colour.m_nRed} << ", " << int{colour.m_nGreen} << ", "
                  << int{colour.m_nBlue} << ")";
}

CPicture::CPicture(int nWidth, int nHeight)
    : m_nWidth(nWidth), m_nHeight(nHeight), m_Pixels(static_cast<size_t>(nWidth * nHeight * CHANNELS)) {
    glPixelStorei(GL_PACK_ALIGNMENT, 1);
    glReadBuffer(GL_BACK);
    glReadPixels(0, 0, nWidth, nHeight, GL_RGB, GL_UNSIGNED_BYTE, m_Pixels.data());
}

SColour CPicture::At(int nX, int nY) const {
    if (nX < 0 || nY < 0 || nX >= m_nWidth || nY >= m_nHeight) {
        return WHITE;
    }
    const std::uint8_t* pPixel = &m_Pixels[static_cast<size_t>((nY * m_nWidth + nX) * CHANNELS)];
    return {pPixel[0], pPixel[1], pPixel[2]};
}

SColour CPicture::At(float fX, float fY) const {
    return At(static_cast<int>(std::floor(fX)), static_cast<int>(std::floor(fY)));
}

bool CPicture::Touches(SColour colour, float fX, float fY) const {
    constexpr float HAIR = 0.01F;
    return At(fX - HAIR, fY - HAIR) == colour || At(fX - HAIR, fY + HAIR) == colour ||
           At(fX + HAIR, fY - HAIR) == colour || At(fX + HAIR, fY + HAIR) == colour;
}

int CPicture::Count(SColour colour, int nLeft, int nBottom, int nRight, int nTop) const {
    int nCount = 0;
    for (int nY = nBottom; nY < nTop; ++nY) {
        for (int nX = nLeft; nX < nRight; ++nX) {
            nCount += At(nX, nY) == colour ? 1 : 0;
        }
    }
    return nCount;
}

bool CPicture::IsBlank(int nLeft, int nBottom, int nRight, int nTop) const {
    return Count(WHITE, nLeft, nBottom, nRight, nTop) == (nRight - nLeft) * (nTop - nBottom);
}

std::string CPicture::DifferenceFrom(const CPicture& expected) const {
    if (m_nWidth != expected.m_nWidth || m_nHeight != expected.m_nHeight) {
        return "another size";
    }
    int nCount = 0;
    std::ostringstream first;
    for (int nY = 0; nY < m_nHeight; ++nY) {
        for (int nX = 0; nX < m_nWidth; ++nX) {
            if (At(nX, nY) == expected.At(nX, nY)) {
                continue;
            }
            if (nCount == 0) {
                first << " other pixels, the first at (" << nX << ", " << nY << "): " << At(nX, nY)
                      << " instead of " << expected.At(nX, nY);
            }
            ++nCount;
        }
    }
    return nCount == 0 ? "" : std::to_string(nCount) + first.str();
}

}  // namespace nestrix::support
