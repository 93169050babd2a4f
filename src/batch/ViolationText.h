#pragma once

#include <string>

#include "certify/Certify.h"
#include "formats/json/PackingRecord.h"

namespace nestrix {

/// What is wrong with a packing, with the names of the pieces that it is about behind it: "(leg, arm)".
[[nodiscard]] std::string InWords(const SViolation& violation, const SFreeRecord& record);
[[nodiscard]] std::string InWords(const SViolation& violation, const SDroppedRecord& record);

}  // namespace nestrix
