#include "fuzz/CertificateInput.h"

#include <bit>

namespace nestrix::fuzz {
namespace {

double AnyDouble(CByteSource& bytes) {
    uint64_t nBits = 0;
    for (int i = 0; i < 8; ++i) {
        nBits = nBits << 8 | bytes.Byte();
    }
    return std::bit_cast<double>(nBits);
}

double Coordinate(CByteSource& bytes, bool bTame) {
    return bTame ? bytes.SignedByte() / 8 : AnyDouble(bytes);
}

CRing Ring(CByteSource& bytes, bool bTame, size_t nVertices) {
    CRing ring;
    for (; nVertices > 0; --nVertices) {
        const double x = Coordinate(bytes, bTame);
        ring.push_back({x, Coordinate(bytes, bTame)});
    }
    return ring;
}

SPiece Piece(CByteSource& bytes, bool bTame) {
    const uint8_t nForm = bytes.Byte();
    SPiece piece;
    piece.m_Shape.m_Outline = Ring(bytes, bTame, nForm & 15U);
    if ((nForm & 16U) != 0) {
        piece.m_Shape.m_Holes.push_back(Ring(bytes, bTame, 3U + (nForm >> 5U & 1U)));
    }
    return piece;
}

SFreePlacement Placement(CByteSource& bytes, bool bTame, SPiece& piece, int nPiece) {
    SFreePlacement placement;
    const double x = Coordinate(bytes, bTame);
    const double y = Coordinate(bytes, bTame);
    // Any 64 bits are a place, too.
    placement.m_At = bTame ? SGridPoint{static_cast<int64_t>(x) + 16, static_cast<int64_t>(y) + 16}
                           : SGridPoint{std::bit_cast<int64_t>(x), std::bit_cast<int64_t>(y)};
    const uint8_t nForm = bytes.Byte();
    placement.m_nPiece = nPiece;
    placement.m_Degrees = 90.0 * (nForm & 3U);
    placement.m_bMirrored = (nForm & 4U) != 0;
    piece.m_bMirrored = (nForm & 8U) != 0;
    piece.m_nQuantity = static_cast<int>(nForm >> 4U & 3U);
    piece.m_Turns.m_Degrees = {0.0, 180.0, -270.0};
    if (!bTame) {
        placement.m_Degrees = AnyDouble(bytes);
        piece.m_Turns.m_bAny = bytes.Byte() % 2 == 0;
        placement.m_nPiece = bytes.SignedByte() % 8;
    }
    return placement;
}

}  // namespace

SCertificateInput DecodeCertificateInput(CByteSource bytes) {
    SCertificateInput input;
    input.m_bTame = (bytes.Byte() & 1U) == 0;
    SFreePacking& packing = input.m_Packing;
    const uint8_t nWidth = bytes.Byte();
    const uint8_t nApart = bytes.Byte();
    packing.m_Strip = {1.0 + nWidth, static_cast<double>(nApart & 7U),
                       static_cast<double>(nApart >> 3U & 3U)};
    if (!input.m_bTame) {
        const double spacing = AnyDouble(bytes);
        packing.m_Strip = {AnyDouble(bytes), spacing, AnyDouble(bytes)};
        packing.m_Grid.m_nExponent = bytes.SignedByte();
    }
    for (size_t nLeft = 1 + bytes.Below(4); nLeft > 0; --nLeft) {
        input.m_Pieces.push_back(Piece(bytes, input.m_bTame));
        const int nPiece = static_cast<int>(input.m_Pieces.size()) - 1;
        packing.m_Placed.push_back(Placement(bytes, input.m_bTame, input.m_Pieces.back(), nPiece));
    }
    if (input.m_bTame) {
        packing.m_nHeight = HeightOf(PlacedShapes(input.m_Pieces, packing)) + bytes.Byte() % 2;
    }
    return input;
}

}  // namespace nestrix::fuzz
