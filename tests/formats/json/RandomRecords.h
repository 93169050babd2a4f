#pragma once

#include "formats/json/PackingRecord.h"
#include "tests/support/CSeededRandom.h"

namespace nestrix::support {

/// Any free packing that a file can hold: names, numbers and demands of all kinds, on any grid. Pieces lie
/// anywhere.
[[nodiscard]] SPackingRecord RandomFreeRecord(CSeededRandom& random);

/// Any dropped packing, likewise.
[[nodiscard]] SPackingRecord RandomDroppedRecord(CSeededRandom& random);

}  // namespace nestrix::support
