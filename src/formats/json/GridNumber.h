#pragma once

#include <cstdint>
#include <string>

#include "packing/SGrid.h"

namespace nestrix {

/// So many units of the grid as a decimal number, exactly, without an exponent.
[[nodiscard]] std::string GridDigits(int64_t nUnits, const SGrid& grid);

}  // namespace nestrix
