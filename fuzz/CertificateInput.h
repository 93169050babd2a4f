#pragma once

#include <vector>

#include "fuzz/CByteSource.h"
#include "packing/SFreePacking.h"

namespace nestrix::fuzz {

/// What the bytes of an input say: a few pieces and a free packing of them. Every input says something.
///
/// One byte says whether coordinates are tame (bit 0 clear: whole numbers of a byte's high five bits) or any
/// doubles; one the strip's width, one the spacing (bits 0-2) and the margin (bits 3-4). One the number of
/// pieces (1 to 4). Per piece: a byte with the number of vertices (bits 0-3) and whether there is a hole (bit
/// 4), the vertices, those of the hole (three or four), and where it lies: x, y, and a byte with quarter
/// turns (bits 0-1), mirroring (bit 2), whether that is allowed (bit 3), copies demanded (bits 4-5). The
/// height is that of the highest point, unless the last byte is odd.
struct SCertificateInput {
    bool m_bTame = true;
    std::vector<SPiece> m_Pieces;
    SFreePacking m_Packing;
};

[[nodiscard]] SCertificateInput DecodeCertificateInput(CByteSource bytes);

}  // namespace nestrix::fuzz
