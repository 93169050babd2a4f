#pragma once

#include <string>

#include "batch/InputFile.h"
#include "formats/json/PackingRecord.h"

namespace nestrix {

/// Reads a published packing instance: its pieces with what is demanded of them, and the width of its strip.
/// Other JSON files are refused with a word about what they are good for.
[[nodiscard]] SInputFile ReadJsonInput(const std::string& path, const SReadOptions& options);

/// The pieces of a free packing, as they were packed, and its strip.
[[nodiscard]] SInputFile PiecesOf(const SPackingRecord& record, const SFreeRecord& packing,
                                  const std::string& path);

}  // namespace nestrix
