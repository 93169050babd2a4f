#pragma once

#include <vector>

#include "formats/json/CJsonFindings.h"
#include "formats/json/CMemberReader.h"
#include "formats/json/FileWords.h"
#include "formats/json/PackingRecord.h"
#include "formats/json/PieceReading.h"

namespace nestrix::json {

/// What the file of a packing says of its pieces.
struct SWrittenPacking {
    std::vector<SWrittenPiece> m_Pieces;
    std::vector<SWrittenPlacement> m_Placements;
    EReference m_eReference = EReference::ORIGIN;
};

/// A free packing. What the file does not say is not demanded, and a height that is not there is that of the
/// highest point.
/// @param members of the outermost object: "strip", "grid" and "statistics" are read here.
[[nodiscard]] SFreeRecord FreeRecordOf(const SWrittenPacking& written, CMemberReader& members,
                                       CJsonFindings& findings);

/// A dropped packing, likewise.
[[nodiscard]] SDroppedRecord DroppedRecordOf(const SWrittenPacking& written, CMemberReader& members,
                                             CJsonFindings& findings);

}  // namespace nestrix::json
