#pragma once

#include <string>

#include "formats/json/SReading.h"

namespace nestrix {

/// What the JSON files that this program knows are about.
enum class EJsonKind {
    PACKING,  ///< a packing that was found: ReadPackingRecord
    JOB,      ///< what is to be packed, and how: ReadJob
    INSTANCE  ///< a published packing problem: ReadInstance
};

/// Which of them a file is, by the members of its outermost object; whether it is a sound one shows when it
/// is read. Never throws; a file that is no JSON, or none of them, is a fault.
[[nodiscard]] SReading<EJsonKind> KindOf(const std::string& path);

}  // namespace nestrix
