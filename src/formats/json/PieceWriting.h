#pragma once

#include "formats/json/CJsonWriter.h"
#include "formats/json/PackingRecord.h"

namespace nestrix::json {

void WriteRing(CJsonWriter& writer, const CRing& ring);

/// The members "pieces" and "placements" of a packing's file.
/// @param sources as many as pieces.
void WritePieces(CJsonWriter& writer, const SFreeRecord& record, std::span<const SPieceSource> sources);
void WritePieces(CJsonWriter& writer, const SDroppedRecord& record, std::span<const SPieceSource> sources);

}  // namespace nestrix::json
