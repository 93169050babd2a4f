#pragma once

#include <string>

#include "formats/json/PackingRecord.h"

namespace nestrix {

/// What was asked for differently in two searches: other pieces, another strip. Seeds, threads and limits are
/// no part of it.
/// @param records with free packings.
/// @return in words for a user, such as "its strip is 300 wide, not 400"; empty for one and the same job.
[[nodiscard]] std::string FindDifference(const SPackingRecord& record, const SPackingRecord& job);

}  // namespace nestrix
