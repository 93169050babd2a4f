#pragma once

#include "fuzz/CByteSource.h"
#include "ga/CContainer.h"

namespace nestrix::fuzz {

/// What the bytes of an input say: a few polygons, a strip and a chromosome. Every input says something.
///
/// One byte chooses the strip's width, one the number of polygons (1 to 8). Per polygon: a byte with the kind
/// of numbers (bits 0-2), the kind of box (bit 3) and whether it repeats the polygon before it (bits 4-5); a
/// byte with the number of vertices; the vertices; the box's corners unless it encloses the vertices. Then a
/// byte that says whether offsets are clamped and whether genes name polygons of their own choice, and per
/// gene: order key, kind of number, offset, polygon if chosen.
struct SPackingInput {
    CContainer m_Container;
    CChromosome m_Chromosome;
};

void Decode(CByteSource bytes, SPackingInput& input);

}  // namespace nestrix::fuzz
