#pragma once

#include "nest/CPackProblem.h"

namespace nestrix {

/// The packing of a problem's only item: in the turn in which it lies lowest, in the left corner of the
/// floor. Where it may be turned by any angle, it is turned on from each that is tried until it lies no
/// lower.
[[nodiscard]] SFreePacking PackSingle(const CPackProblem& problem);

}  // namespace nestrix
