#pragma once

#include "certify/SBorder.h"

namespace nestrix::certify {

/// Whether the insides of two shapes share points.
[[nodiscard]] bool Overlap(const SBorder& first, const SBorder& second);

}  // namespace nestrix::certify
