#include "fuzz/OverlapInput.h"

namespace nestrix::fuzz {

namespace {

constexpr size_t COORDINATES = 13;
constexpr int FARTHEST = 18;

CGridRing Ring(CByteSource& bytes, size_t nVertices) {
    CGridRing ring;
    for (; nVertices > 0; --nVertices) {
        const auto nX = static_cast<int64_t>(bytes.Below(COORDINATES));
        ring.push_back({nX, static_cast<int64_t>(bytes.Below(COORDINATES))});
    }
    return ring;
}

SGridShape Shape(CByteSource& bytes) {
    const uint8_t nForm = bytes.Byte();
    SGridShape shape{Ring(bytes, 3U + (nForm & 7U)), {}};
    if ((nForm & 16U) != 0) {
        shape.m_Holes.push_back(Ring(bytes, 3U + (nForm >> 5U & 1U)));
    }
    return shape;
}

int64_t Millionths(CByteSource& bytes) {
    const int nHigh = bytes.SignedByte();
    return nHigh * 256 + bytes.Byte();
}

}  // namespace

SOverlapInput DecodeOverlapInput(CByteSource bytes) {
    constexpr int64_t MILLION = 1'000'000;
    SOverlapInput input;
    input.m_Stays = Shape(bytes);
    input.m_Moves = Shape(bytes);
    const int64_t nX = bytes.SignedByte() % (FARTHEST + 1) * MILLION;
    const int64_t nY = bytes.SignedByte() % (FARTHEST + 1) * MILLION;
    const int64_t nOffX = Millionths(bytes);
    input.m_At = {nX + nOffX, nY + Millionths(bytes)};
    return input;
}

}  // namespace nestrix::fuzz
