#pragma once

#include "fuzz/CByteSource.h"
#include "packing/SGrid.h"

namespace nestrix::fuzz {

/// What the bytes of an input say: two shapes and a place of the second beside the first. Every input says
/// something, though not all shapes are sound.
///
/// Per shape a byte with the number of vertices (bits 0-2, and three more) and whether there is a hole (bit
/// 4) of three or four (bit 5), then the vertices, whole numbers from 0 to 12. The place is a byte for x and
/// y each, from −18 to 18, and two bytes each for millionths to be added.
struct SOverlapInput {
    SGridShape m_Stays;
    SGridShape m_Moves;
    SGridPoint m_At;  ///< in millionths
};

[[nodiscard]] SOverlapInput DecodeOverlapInput(CByteSource bytes);

}  // namespace nestrix::fuzz
