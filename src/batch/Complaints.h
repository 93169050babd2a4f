#pragma once

#include <string>
#include <vector>

#include "drawing/SFinding.h"

namespace nestrix {

/// Says on standard error what is wrong, behind the program's name.
void Complain(const std::string& complaint);

/// The same for something about an input, with how much it matters.
void Complain(const SFinding& finding);

/// Complains, if there is anything to complain about.
/// @return whether there is.
[[nodiscard]] bool IsFaulty(const std::string& fault);
[[nodiscard]] bool IsFaulty(const std::vector<std::string>& faults);

}  // namespace nestrix
